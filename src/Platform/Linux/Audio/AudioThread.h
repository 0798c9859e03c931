#pragma once

#include "Platform/Linux/Audio/AudioOutput.h"

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <variant>
#include <vector>

namespace tolvar {

/// How long things may take around an output of sound.
struct AudioPatience {
    using Duration = std::chrono::steady_clock::duration;

    /// How late a sound may come and still make sense.
    Duration sound = std::chrono::seconds(1);
    /// An output that is lost sooner after it was opened counts as one that could not be opened, so
    /// that one that is lost again and again is not opened again and again.
    Duration output = std::chrono::seconds(1);
    /// How long the end waits for the output to close before it leaves the thread to itself.
    Duration farewell = std::chrono::milliseconds(250);
};

/// The thread that opens, uses and closes the output, so that nobody else ever waits for it. It
/// follows the latest wishes: while an output is slow to open, a wish to close it and to open it
/// again costs nothing.
///
/// The thread shares this object with the one that made it. All functions may be called from any
/// thread and return at once, except `end`.
class AudioThread : public std::enable_shared_from_this<AudioThread> {
public:
    using Clock = std::chrono::steady_clock;
    /// Counts the starts, from 1; none stands for an output that is to be closed.
    using Run = int;
    static constexpr Run none = 0;

    /// The output of this run could not be opened.
    struct OpenFailed {
        Run run = none;
    };
    /// The output of this run is gone.
    struct OutputLost {
        Run run = none;
    };
    /// What was to be played on this voice cannot be.
    struct PlayFailed {
        VoiceNumber voice = 0;
        std::shared_ptr<const AudioBuffer> buffer;
        AudioError error;
    };
    using Report = std::variant<OpenFailed, OutputLost, PlayFailed>;
    /// Called on the audio thread; must return at once and not call back.
    using Tell = std::function<void(const Report&)>;

    static std::shared_ptr<AudioThread> begin(AudioOutput::Open open, Tell tell,
                                              const AudioPatience& patience);

    /// Wishes for an open output, or with `none` for a closed one. What was to be played is
    /// forgotten then.
    void setRun(Run run);
    void setVolume(float volume);
    /// The sound is dropped if it cannot be begun within its patience. While the output is being
    /// opened, a sound that was asked for already is not repeated.
    void play(VoiceNumber voice, std::shared_ptr<const AudioBuffer> buffer);
    void silence(VoiceNumber voice);

    /// Closes the output and ends the thread, and waits for that, but not for long. Nothing is told
    /// any more. A thread that hangs in the output is left to itself: it holds nothing but what it
    /// owns, and ends when it wakes.
    void end();

private:
    struct Play {
        VoiceNumber voice;
        std::shared_ptr<const AudioBuffer> buffer;
        Clock::time_point asked;
    };
    struct Tasks {
        float volume = 1;
        std::vector<VoiceNumber> silenced;
        std::vector<Play> plays;
    };

    AudioThread(AudioOutput::Open open, Tell tell, const AudioPatience& patience);

    // Of the audio thread.
    void work();
    /// Waits for something to do; the wish of the moment, or nothing when the thread is to end.
    std::optional<Run> awaitWish();
    void follow(Run run);
    void openOutput();
    /// What is to be done in the run that was followed; a later one's tasks stay for its output.
    Tasks takeTasks();
    void carryOut(const Tasks& tasks);
    void noticeLoss();
    void tell(const Report& report);

    void forgetPlays(VoiceNumber voice);
    /// To be called with the lock held.
    void wake();

    const AudioOutput::Open m_open;
    const AudioPatience m_patience;

    // Of the audio thread.
    std::unique_ptr<AudioOutput> m_output;
    Clock::time_point m_opened;
    /// The run that was followed last.
    Run m_followed = none;

    std::mutex m_mutex;
    std::condition_variable m_somethingToDo;
    std::condition_variable m_ended;
    // Under the lock.
    Tell m_tell;
    Run m_run = none;
    Tasks m_tasks;
    bool m_isOpen = false;
    bool m_isAwakened = false;
    bool m_mayEnd = false;
    bool m_hasEnded = false;
};

} // namespace tolvar
