#include "Platform/Linux/StatusNotifier/StatusNotifierItem.h"

#include "MenuAdaptor.h"
#include "StatusNotifierAdaptor.h"
#include "WatcherInterface.h"

#include <QCoreApplication>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;

const QString watcherService = u"org.kde.StatusNotifierWatcher"_s;
const QString watcherPath = u"/StatusNotifierWatcher"_s;
/// The path that watchers take for granted of those who give a name alone.
const QString itemPath = u"/StatusNotifierItem"_s;
const QString menuPath = u"/StatusNotifierItem/Menu"_s;

/// What the host makes of it is not known; most panels are about this thick, in points.
constexpr int usualThickness = 24;

} // namespace

StatusNotifierItem::StatusNotifierItem(const Options& options)
    : m_options(options)
    , m_service(u"org.kde.StatusNotifierItem-%1-1"_s.arg(QCoreApplication::applicationPid()))
    , m_menu([this](StatusCommand command) { choose(command); })
    , m_object({.id = options.identifier,
                .title = options.title,
                .iconThemePath = options.iconThemePath,
                .menu = QDBusObjectPath(menuPath)},
               options.art)
    , m_watcher(std::make_unique<OrgKdeStatusNotifierWatcherInterface>(watcherService, watcherPath,
                                                                       options.bus))
    , m_watcherWatch(watcherService, options.bus) {
    registerStatusNotifierTypes();
    new StatusNotifierAdaptor(&m_object);
    new MenuAdaptor(&m_menu);
    // What a click does may take this item away, through which the host is still to be answered.
    connect(&m_object, &StatusNotifierObject::activated, this, &StatusNotifierItem::activate,
            Qt::QueuedConnection);
    connect(&m_object, &StatusNotifierObject::menuWanted, this, [this](QPoint place) {
        m_options.popups.showMenu(m_menuEntries, {place, QSize(1, 1)},
                                  [observers = m_observers](StatusCommand command) {
                                      observers.call(&Observer::chosen, command);
                                  });
    });
    m_options.bus.registerObject(itemPath, &m_object);
    m_options.bus.registerObject(menuPath, &m_menu);
    m_options.bus.registerService(m_service);
    connect(&m_watcherWatch, &QDBusServiceWatcher::serviceRegistered, this,
            &StatusNotifierItem::registerWithWatcher);
    registerWithWatcher();
}

StatusNotifierItem::~StatusNotifierItem() {
    m_options.bus.unregisterService(m_service);
    m_options.bus.unregisterObject(menuPath);
    m_options.bus.unregisterObject(itemPath);
}

void StatusNotifierItem::registerWithWatcher() {
    m_watcher->RegisterStatusNotifierItem(m_service);
}

void StatusNotifierItem::activate(std::optional<QPoint> claimed) {
    m_observers.call(&Observer::clicked, claimed);
}

void StatusNotifierItem::show(const StatusItemContent& content) {
    m_menuEntries = content.menu;
    m_menu.setEntries(content.menu);
    m_object.show(content);
}

int StatusNotifierItem::iconOnlyLength() const {
    return usualThickness;
}

double StatusNotifierItem::iconWidth() const {
    return m_options.art.iconWidth(usualThickness);
}

double StatusNotifierItem::labelWidth(const QString& label) const {
    return m_options.art.labelWidth(label, usualThickness);
}

} // namespace tolvar
