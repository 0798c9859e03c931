#pragma once

#include "Platform/Interfaces/HapticPerformer.h"
#include "Support/Journal.h"

namespace tolvar::test {

/// Records every pattern. Journal line: "haptic generic", "haptic alignment" or "haptic
/// levelChange".
class RecordingHaptics final : public HapticPerformer {
public:
    explicit RecordingHaptics(Journal& journal)
        : m_journal(journal) {}

    void perform(HapticPattern pattern) override {
        m_journal.record(QStringLiteral("haptic ") + name(pattern));
    }

private:
    static QString name(HapticPattern pattern) {
        switch (pattern) {
        case HapticPattern::generic:
            return QStringLiteral("generic");
        case HapticPattern::alignment:
            return QStringLiteral("alignment");
        case HapticPattern::levelChange:
            return QStringLiteral("levelChange");
        }
        return {};
    }

    Journal& m_journal;
};

} // namespace tolvar::test
