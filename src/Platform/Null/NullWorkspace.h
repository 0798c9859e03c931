#pragma once

#include "Platform/Interfaces/Workspace.h"

namespace tolvar {

/// A desktop on which nothing can be seen or hidden.
class NullWorkspace final : public Workspace {
public:
    HidingSupport hidingSupport() const override { return HidingSupport::none; }
    std::vector<RunningApplication> runningApplications() const override { return {}; }
    std::optional<RunningApplication> frontmostApplication() const override { return {}; }
    std::optional<RunningApplication> application(const ApplicationHandle&) const override {
        return {};
    }
    std::vector<ArgbPicture> icon(const ApplicationHandle&) const override { return {}; }
    void hide(const ApplicationHandle&) override {}
    void unhide(const ApplicationHandle&) override {}
    void activateSelf() override {}
    std::vector<ApplicationHandle> hiddenByEarlierRun() const override { return {}; }
    Subscription observe(Observer) override { return {}; }
};

} // namespace tolvar
