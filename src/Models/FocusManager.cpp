#include "Models/FocusManager.h"

#include "Models/AppSettings.h"
#include "Models/BlockingHelpers.h"
#include "Models/PresetName.h"

#include <QPointer>

#include <algorithm>
#include <chrono>
#include <utility>

namespace tolvar {

namespace {

constexpr std::chrono::seconds tickInterval(1);

/// How much of the session's clock the pause that ends now has stopped. A clock set back during
/// the pause stopped nothing.
Seconds countedPause(const FocusSession& session, Date now) {
    const Seconds paused = session.pausedAt ? now - *session.pausedAt : 0;
    return std::clamp(paused, 0.0, FocusSession::maximumPause);
}

bool isPauseOver(const FocusSession& session, Date now) {
    return session.isPaused && session.pausedAt &&
           now - *session.pausedAt >= FocusSession::maximumPause;
}

/// The session as the history keeps it. What it was at its end, also paused, it stays.
FocusSession filed(FocusSession session, Date now) {
    session.outcome =
        session.remainingTime(now) <= 0 ? SessionOutcome::completed : SessionOutcome::endedEarly;
    session.focusedTime = session.elapsedFocusTime(now);
    session.isActive = false;
    session.endTime = now;
    return session;
}

} // namespace

FocusManager::FocusManager(const Environment& environment, QObject* parent)
    : QObject(parent)
    , m_environment(environment)
    , m_store(environment.preferences)
    , m_completionNotification({.notifications = environment.notifications,
                                .sound = environment.sound,
                                .preferences = environment.preferences,
                                .isProperApplication = !environment.bundle.identifier.isEmpty()})
    , m_appBlocker({.workspace = environment.workspace,
                    .timers = environment.timers,
                    .alert = environment.alert,
                    .bundleIdentifier = environment.bundle.identifier,
                    .processIdentifier = environment.processIdentifier})
    , m_websiteBlocker({.browsers = environment.browsers,
                        .timers = environment.timers,
                        .alert = environment.alert}) {
    m_completionNotification.requestNotificationPermission();
    loadSavedData();
}

FocusManager::~FocusManager() = default;

const FocusSession* FocusManager::activeSession() const {
    return m_currentSession && m_currentSession->isActive ? &*m_currentSession : nullptr;
}

SessionStatus FocusManager::status() const {
    const FocusSession* session = activeSession();
    if (!session)
        return SessionStatus::ready;
    return session->isPaused ? SessionStatus::paused : SessionStatus::focusing;
}

void FocusManager::startSession(FocusSession session) {
    performHapticTick();
    session.startTime = now();
    session.endTime = *session.startTime + session.duration;
    session.isActive = true;
    session.isPaused = false;
    m_currentSession = std::move(session);
    applyBlocks(*m_currentSession);
    startTimer();
    saveCurrentSession();
    announce({&FocusManager::currentSessionChanged});
}

void FocusManager::pauseSession() {
    if (!m_currentSession || !m_currentSession->isActive || m_currentSession->isPaused)
        return;
    const int pauseCount = m_currentSession->pauseCount.value_or(0);
    if (pauseCount >= FocusSession::maximumPauseCount)
        return;
    performHapticTick();
    m_currentSession->isPaused = true;
    m_currentSession->pausedAt = now();
    m_currentSession->pauseCount = pauseCount + 1;
    removeBlocks();
    saveCurrentSession();
    announce({&FocusManager::currentSessionChanged});
}

void FocusManager::resumeSession() {
    if (!m_currentSession || !m_currentSession->isActive || !m_currentSession->isPaused)
        return;
    performHapticTick();
    m_currentSession->totalPausedTime += countedPause(*m_currentSession, now());
    m_currentSession->isPaused = false;
    m_currentSession->pausedAt.reset();
    applyBlocks(*m_currentSession);
    startTimer();
    saveCurrentSession();
    announce({&FocusManager::currentSessionChanged});
}

void FocusManager::extendSession(Seconds seconds) {
    if (!m_currentSession || !m_currentSession->isActive)
        return;
    m_currentSession->duration += seconds;
    if (m_currentSession->endTime)
        m_currentSession->endTime = *m_currentSession->endTime + seconds;
    saveCurrentSession();
    announce({&FocusManager::currentSessionChanged});
}

void FocusManager::stopSession() {
    if (!m_currentSession)
        return;
    const bool isFiled = m_currentSession->isActive;
    endSession(now());
    if (isFiled)
        announce({&FocusManager::sessionHistoryChanged, &FocusManager::currentSessionChanged});
    else
        announce({&FocusManager::currentSessionChanged});
}

void FocusManager::savePreset(const FocusSession& session) {
    if (isSessionSaved(session))
        return;
    m_savedPresets.push_back(FocusPreset::from(session, presetName(session)));
    m_store.savePresets(m_savedPresets);
    announce({&FocusManager::savedPresetsChanged});
}

bool FocusManager::isSessionSaved(const FocusSession& session) const {
    return std::any_of(m_savedPresets.begin(), m_savedPresets.end(),
                       [&](const auto& preset) { return preset.sourceSessionId == session.id; });
}

void FocusManager::deletePreset(const FocusPreset& preset) {
    // Copies: the preset may be one of those that are about to move.
    const auto id = preset.id;
    const auto source = preset.sourceSessionId;
    std::erase_if(m_savedPresets, [&](const FocusPreset& saved) {
        return saved.id == id || (source && saved.sourceSessionId == source);
    });
    m_store.savePresets(m_savedPresets);
    announce({&FocusManager::savedPresetsChanged});
}

int FocusManager::presetCount(const QString& categoryId) const {
    const auto uses = [&](const FocusPreset& preset) {
        return std::find(preset.categoryIDs.begin(), preset.categoryIDs.end(), categoryId) !=
               preset.categoryIDs.end();
    };
    return static_cast<int>(std::count_if(m_savedPresets.begin(), m_savedPresets.end(), uses));
}

void FocusManager::deleteSession(const FocusSession& session) {
    // A copy: the session may be one of those that are about to move.
    const auto id = session.id;
    std::erase_if(m_sessionHistory, [&](const FocusSession& filed) { return filed.id == id; });
    m_store.saveHistory(m_sessionHistory);
    announce({&FocusManager::sessionHistoryChanged});
}

void FocusManager::clearHistory() {
    m_sessionHistory.clear();
    m_store.saveHistory(m_sessionHistory);
    announce({&FocusManager::sessionHistoryChanged});
}

void FocusManager::performHapticTick() {
    if (m_environment.preferences.boolean(AppSettings::hapticsEnabled))
        m_environment.haptics.perform(HapticPattern::levelChange);
}

/// To be called last: a slot may have destroyed this manager.
void FocusManager::announce(std::initializer_list<Signal> changes) {
    const QPointer<FocusManager> alive(this);
    for (const Signal change : changes) {
        Q_EMIT(this->*change)();
        if (!alive)
            return;
    }
    Q_EMIT changed();
}

void FocusManager::loadSavedData() {
    m_currentSession = m_store.loadCurrentSession();
    const bool isRunning = m_currentSession && m_currentSession->isActive;
    if (isRunning && !m_currentSession->isPaused) {
        applyBlocks(*m_currentSession);
        m_appBlocker.restoreUnblockedApps();
    } else {
        removeBlocks();
    }
    if (isRunning)
        startTimer();
    m_savedPresets = m_store.loadPresets();
    m_sessionHistory = m_store.loadHistory();
}

void FocusManager::applyBlocks(const FocusSession& session) {
    using BlockingHelpers::resolvedItems;
    for (const auto& app :
         resolvedItems(session.blockedApps, session.blockCategories, &BlockCategory::apps))
        m_appBlocker.blockApp(app);
    for (const auto& website :
         resolvedItems(session.blockedWebsites, session.blockCategories, &BlockCategory::websites))
        m_websiteBlocker.blockWebsite(website);
}

void FocusManager::removeBlocks() {
    m_appBlocker.unblockAll();
    m_websiteBlocker.unblockAll();
}

void FocusManager::startTimer() {
    m_timer.reset();
    m_timer = m_environment.timers.repeat(tickInterval, [this] { updateSession(); });
}

void FocusManager::updateSession() {
    const Date moment = now();
    if (!m_currentSession)
        m_timer.reset();
    else if (m_currentSession->isActive && m_currentSession->remainingTime(moment) <= 0)
        completeSession(moment);
    else if (isPauseOver(*m_currentSession, moment))
        resumeSession();
    else
        announce({});
}

/// Lifts the blocks and stops the tick; a session that was running enters the history in the same
/// transaction in which it ceases to be the current one.
void FocusManager::endSession(Date moment) {
    removeBlocks();
    m_timer.reset();
    const Preferences::Transaction together(m_environment.preferences);
    if (m_currentSession->isActive) {
        m_sessionHistory.push_back(filed(*std::move(m_currentSession), moment));
        m_store.saveHistory(m_sessionHistory);
    }
    m_currentSession.reset();
    saveCurrentSession();
}

void FocusManager::completeSession(Date moment) {
    const FocusSession session = *m_currentSession;
    endSession(moment);
    m_environment.sound.play(InterfaceSound::Sound::sessionEnd);
    m_completionNotification.showCompletionNotification(session);
    announce({&FocusManager::sessionHistoryChanged, &FocusManager::currentSessionChanged});
}

} // namespace tolvar
