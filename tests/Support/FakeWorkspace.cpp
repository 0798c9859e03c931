#include "Support/FakeWorkspace.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tolvar::test {

namespace {

using namespace Qt::StringLiterals;

constexpr qint64 firstProcessIdentifier = 1000;

} // namespace

FakeWorkspace::~FakeWorkspace() {
    for (const auto& [handle, application] : m_applications)
        EXPECT_TRUE(m_expectsHiddenAtEnd || !isHiddenByProgram(handle))
            << application.name.toStdString() << " was left hidden";
}

ApplicationHandle FakeWorkspace::launch(const QString& name, const Launch& details) {
    const int id = m_nextId++;
    // Keys do not sort in the order of launching, so that no test relies on it.
    ApplicationHandle handle{u"%1#%2"_s.arg(name).arg(id)};
    const auto process = details.processIdentifier.value_or(firstProcessIdentifier + id);
    m_applications.emplace(
        handle, Application{name, details.bundleIdentifier, process,
                            std::vector(static_cast<std::size_t>(details.windows), Window::shown)});
    notify(&Observer::launched, handle);
    return handle;
}

void FakeWorkspace::activate(const ApplicationHandle& handle) {
    activateUnnoticed(handle);
    notify(&Observer::activated, handle);
}

void FakeWorkspace::activateUnnoticed(const ApplicationHandle& handle) {
    auto& windows = running(handle).windows;
    std::fill(windows.begin(), windows.end(), Window::shown);
    m_focus = Focus::application;
    m_frontmost = handle;
}

void FakeWorkspace::openWindow(const ApplicationHandle& handle) {
    const bool wasHidden = isHidden(handle);
    running(handle).windows.push_back(Window::shown);
    if (wasHidden)
        notify(&Observer::activated, handle);
}

void FakeWorkspace::hideByUser(const ApplicationHandle& handle) {
    for (auto& window : running(handle).windows)
        if (window == Window::shown)
            window = Window::hiddenByUser;
    if (m_frontmost == handle)
        m_focus = Focus::self;
}

void FakeWorkspace::terminate(const ApplicationHandle& handle) {
    m_applications.erase(handle);
    if (m_frontmost == handle)
        m_focus = Focus::self;
}

int FakeWorkspace::shownWindows(const ApplicationHandle& handle) const {
    const auto& windows = m_applications.at(handle).windows;
    return static_cast<int>(std::count(windows.begin(), windows.end(), Window::shown));
}

bool FakeWorkspace::isHiddenByProgram(const ApplicationHandle& handle) const {
    const auto& windows = m_applications.at(handle).windows;
    return std::find(windows.begin(), windows.end(), Window::hiddenByProgram) != windows.end();
}

void FakeWorkspace::restartProgram() {
    EXPECT_FALSE(isWatched()) << "an observer of the killed run still watches";
    m_programIsDead = false;
    for (auto& [handle, application] : m_applications)
        application.isHiddenByEarlierRun = isHiddenByProgram(handle);
}

std::vector<RunningApplication> FakeWorkspace::runningApplications() const {
    std::vector<RunningApplication> applications;
    for (const auto& [handle, application] : m_applications)
        applications.push_back(describe(handle, application));
    return applications;
}

std::optional<RunningApplication> FakeWorkspace::frontmostApplication() const {
    return m_focus == Focus::application ? application(m_frontmost) : std::nullopt;
}

std::optional<RunningApplication>
FakeWorkspace::application(const ApplicationHandle& handle) const {
    const auto found = m_applications.find(handle);
    return found != m_applications.end() ? std::optional(describe(handle, found->second))
                                         : std::nullopt;
}

std::vector<ArgbPicture> FakeWorkspace::icon(const ApplicationHandle& handle) const {
    const auto found = m_applications.find(handle);
    return found != m_applications.end() ? found->second.icon : std::vector<ArgbPicture>();
}

void FakeWorkspace::hide(const ApplicationHandle& handle) {
    auto& application = running(handle);
    m_journal.record(u"hide "_s + application.name);
    if (m_programIsDead)
        return;
    std::replace(application.windows.begin(), application.windows.end(), Window::shown,
                 Window::hiddenByProgram);
}

void FakeWorkspace::unhide(const ApplicationHandle& handle) {
    auto& application = running(handle);
    m_journal.record(u"unhide "_s + application.name);
    if (m_programIsDead)
        return;
    std::replace(application.windows.begin(), application.windows.end(), Window::hiddenByProgram,
                 Window::shown);
    application.isHiddenByEarlierRun = false;
    if (m_reportsUnhiding)
        notify(&Observer::activated, handle);
}

void FakeWorkspace::activateSelf() {
    m_journal.record(u"activate self"_s);
    if (!m_programIsDead)
        m_focus = Focus::self;
}

std::vector<ApplicationHandle> FakeWorkspace::hiddenByEarlierRun() const {
    std::vector<ApplicationHandle> handles;
    for (const auto& [handle, application] : m_applications)
        if (application.isHiddenByEarlierRun)
            handles.push_back(handle);
    return handles;
}

Subscription FakeWorkspace::observe(Observer observer) {
    m_journal.record(u"watch applications"_s);
    const int id = m_nextId++;
    m_observers->emplace(id, std::move(observer));
    return Subscription([this, observers = std::weak_ptr(m_observers), id] {
        if (const auto alive = observers.lock()) {
            alive->erase(id);
            m_journal.record(u"unwatch applications"_s);
        }
    });
}

RunningApplication FakeWorkspace::describe(const ApplicationHandle& handle,
                                           const Application& app) const {
    return {.handle = handle,
            .localizedName = app.name,
            .bundleIdentifier = app.bundleIdentifier,
            .processIdentifier = app.processIdentifier,
            .isHidden = isHidden(handle),
            .isActive = m_focus == Focus::application && m_frontmost == handle};
}

void FakeWorkspace::notify(std::function<void(const RunningApplication&)> Observer::*event,
                           const ApplicationHandle& handle) {
    // Copies: whoever is called may come and go, and so may the application.
    const auto observers = *m_observers;
    for (const auto& [id, observer] : observers)
        if (const auto present = application(handle); present && m_observers->contains(id))
            if (const auto& callback = observer.*event)
                callback(*present);
}

} // namespace tolvar::test
