#pragma once

#include "Platform/Interfaces/PanelWindows.h"
#include "Support/Journal.h"

namespace tolvar::test {

/// Records what is asked for windows. Journal lines: "traits TRAITS", the number that they are as
/// flags, and "activate".
class RecordingPanelWindows final : public PanelWindows {
public:
    explicit RecordingPanelWindows(Journal& journal)
        : m_journal(journal) {}

    bool isTranslucent = true;
    /// What panels at the bottom leave of a screen.
    int freeHeight = 100'000;

    void setTraits(NativeWindow, PanelTraits traits) override {
        m_journal.record(QStringLiteral("traits %1").arg(traits.toInt()));
    }
    void activate(NativeWindow) override { m_journal.record(QStringLiteral("activate")); }
    bool showsTranslucency() const override { return isTranslucent; }
    QRect freeArea(const QRect& screen) const override {
        return screen & QRect(screen.topLeft(), QSize(screen.width(), freeHeight));
    }

private:
    Journal& m_journal;
};

} // namespace tolvar::test
