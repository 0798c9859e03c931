#include "Platform/Linux/Audio/AudioThread.h"

#include <algorithm>
#include <thread>
#include <utility>

namespace tolvar {

namespace {

/// How often an open output is asked whether it is still there, should it not tell by itself.
constexpr std::chrono::seconds connectionPoll{1};

} // namespace

std::shared_ptr<AudioThread> AudioThread::begin(AudioOutput::Open open, Tell tell,
                                                const AudioPatience& patience) {
    std::shared_ptr<AudioThread> self(new AudioThread(std::move(open), std::move(tell), patience));
    std::thread([self] { self->work(); }).detach();
    return self;
}

AudioThread::AudioThread(AudioOutput::Open open, Tell tell, const AudioPatience& patience)
    : m_open(std::move(open))
    , m_patience(patience)
    , m_tell(std::move(tell)) {}

void AudioThread::setRun(Run run) {
    const std::lock_guard lock(m_mutex);
    m_run = run;
    m_tasks.plays.clear();
    wake();
}

void AudioThread::setVolume(float volume) {
    const std::lock_guard lock(m_mutex);
    m_tasks.volume = volume;
    wake();
}

void AudioThread::play(VoiceNumber voice, std::shared_ptr<const AudioBuffer> buffer) {
    const std::lock_guard lock(m_mutex);
    forgetPlays(voice);
    if (!m_isOpen)
        std::erase_if(m_tasks.plays, [&](const Play& play) { return play.buffer == buffer; });
    m_tasks.plays.push_back({voice, std::move(buffer), Clock::now()});
    wake();
}

void AudioThread::silence(VoiceNumber voice) {
    const std::lock_guard lock(m_mutex);
    forgetPlays(voice);
    if (!m_isOpen)
        return;
    m_tasks.silenced.push_back(voice);
    wake();
}

void AudioThread::end() {
    std::unique_lock lock(m_mutex);
    m_tell = nullptr;
    m_tasks = {};
    m_mayEnd = true;
    wake();
    m_ended.wait_for(lock, m_patience.farewell, [this] { return m_hasEnded; });
}

void AudioThread::forgetPlays(VoiceNumber voice) {
    std::erase_if(m_tasks.plays, [&](const Play& play) { return play.voice == voice; });
}

void AudioThread::wake() {
    m_isAwakened = true;
    m_somethingToDo.notify_one();
}

void AudioThread::work() {
    while (const auto wish = awaitWish()) {
        follow(*wish);
        const Tasks tasks = takeTasks();
        if (m_output)
            carryOut(tasks);
        noticeLoss();
    }
    m_output.reset();
    const std::lock_guard lock(m_mutex);
    m_hasEnded = true;
    m_ended.notify_all();
}

std::optional<AudioThread::Run> AudioThread::awaitWish() {
    std::unique_lock lock(m_mutex);
    const auto awakened = [this] { return m_isAwakened; };
    if (m_output)
        m_somethingToDo.wait_for(lock, connectionPoll, awakened);
    else
        m_somethingToDo.wait(lock, awakened);
    m_isAwakened = false;
    return m_mayEnd ? std::nullopt : std::optional(m_run);
}

void AudioThread::follow(Run run) {
    if (run == m_followed)
        return;
    m_followed = run;
    if (run == none)
        m_output.reset();
    else if (!m_output)
        openOutput();
    const std::lock_guard lock(m_mutex);
    m_isOpen = m_output != nullptr;
}

void AudioThread::openOutput() {
    m_output = m_open([weak = weak_from_this()] {
        if (const auto self = weak.lock()) {
            const std::lock_guard lock(self->m_mutex);
            self->wake();
        }
    });
    m_opened = Clock::now();
    if (!m_output)
        tell(OpenFailed{m_followed});
}

AudioThread::Tasks AudioThread::takeTasks() {
    const std::lock_guard lock(m_mutex);
    if (m_run != m_followed)
        return {.volume = m_tasks.volume, .silenced = {}, .plays = {}};
    return {.volume = m_tasks.volume,
            .silenced = std::exchange(m_tasks.silenced, {}),
            .plays = std::exchange(m_tasks.plays, {})};
}

void AudioThread::carryOut(const Tasks& tasks) {
    for (const VoiceNumber voice : tasks.silenced)
        m_output->silence(voice);
    m_output->setVolume(tasks.volume);
    const auto now = Clock::now();
    for (const Play& play : tasks.plays) {
        if (now - play.asked > m_patience.sound)
            continue;
        if (const auto error = m_output->play(play.voice, play.buffer))
            tell(PlayFailed{play.voice, play.buffer, *error});
    }
}

void AudioThread::noticeLoss() {
    if (!m_output || m_output->isConnected())
        return;
    m_output.reset();
    {
        const std::lock_guard lock(m_mutex);
        m_isOpen = false;
    }
    if (Clock::now() - m_opened < m_patience.output)
        tell(OpenFailed{m_followed});
    else
        tell(OutputLost{m_followed});
}

void AudioThread::tell(const Report& report) {
    const std::lock_guard lock(m_mutex);
    if (m_tell)
        m_tell(report);
}

} // namespace tolvar
