#pragma once

#include "Sound/InterfaceSound.h"
#include "Support/Journal.h"

#include <set>

namespace tolvar::test {

/// Records every sound, whatever the settings say. Journal line: "play NAME", with ", preview"
/// behind it for one.
class RecordingSound final : public InterfaceSound {
public:
    explicit RecordingSound(Journal& journal)
        : m_journal(journal) {}

    /// The samples that are there; none at first.
    std::set<Sound> loaded;
    /// How many holds live.
    int holds = 0;

    void play(Sound sound, Preview preview) override {
        m_journal.record(QStringLiteral("play ") + name(sound) +
                         (preview == Preview::yes ? QStringLiteral(", preview") : QString()));
    }
    bool isLoaded(Sound sound) const override { return loaded.contains(sound); }
    Hold stayAwake() override {
        ++holds;
        return Hold([this] { --holds; });
    }

private:
    static QString name(Sound sound) {
        switch (sound) {
        case Sound::keyDown:
            return QStringLiteral("keyDown");
        case Sound::keyUp:
            return QStringLiteral("keyUp");
        case Sound::modeSwitch:
            return QStringLiteral("modeSwitch");
        case Sound::sessionEnd:
            return QStringLiteral("sessionEnd");
        case Sound::blocked:
            return QStringLiteral("blocked");
        }
        return {};
    }

    Journal& m_journal;
};

} // namespace tolvar::test
