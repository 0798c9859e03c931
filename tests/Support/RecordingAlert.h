#pragma once

#include "Platform/Interfaces/BlockAlert.h"
#include "Support/Journal.h"

#include <functional>

namespace tolvar::test {

/// Records every alert. Journal lines: "alert app NAME", "alert site HOST".
class RecordingAlert final : public BlockAlert {
public:
    explicit RecordingAlert(Journal& journal)
        : m_journal(journal) {}

    /// Called at each alert, when set.
    std::function<void()> presented;

    void presentBlocked(const QString& name, BlockTarget type) override {
        m_journal.record((type == BlockTarget::app ? QStringLiteral("alert app ")
                                                   : QStringLiteral("alert site ")) +
                         name);
        if (presented)
            presented();
    }

private:
    Journal& m_journal;
};

} // namespace tolvar::test
