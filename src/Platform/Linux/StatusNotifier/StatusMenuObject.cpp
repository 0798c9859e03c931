#include "Platform/Linux/StatusNotifier/StatusMenuObject.h"

#include <QGuiApplication>

#include <algorithm>
#include <utility>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;

constexpr int rootId = 0;

/// An underscore alone would mark the next letter as the entry's key.
QString withoutMnemonics(QString text) {
    return text.replace(u'_', u"__"_s);
}

MenuItems itemsOf(const std::vector<StatusMenuEntry>& entries) {
    MenuItems items;
    int id = 0;
    for (const StatusMenuEntry& entry : entries) {
        ++id;
        if (entry.group == StatusMenuEntry::Group::begins)
            items.append({id + StatusMenuObject::separatorOffset, {{u"type"_s, u"separator"_s}}});
        items.append({id,
                      {{u"label"_s, withoutMnemonics(entry.text)},
                       {u"enabled"_s, entry.isEnabled},
                       {u"visible"_s, true}}});
    }
    return items;
}

QVariantMap only(const QStringList& names, const QVariantMap& properties) {
    if (names.isEmpty())
        return properties;
    QVariantMap wanted;
    for (const QString& name : names)
        if (properties.contains(name))
            wanted.insert(name, properties.value(name));
    return wanted;
}

QVariantMap rootProperties() {
    return {{u"children-display"_s, u"submenu"_s}};
}

bool hasSameShape(const MenuItems& left, const MenuItems& right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](const MenuItem& a, const MenuItem& b) { return a.id == b.id; });
}

/// What is in `after` and not the same in `before`, which has the same shape.
MenuItems changes(const MenuItems& before, const MenuItems& after) {
    MenuItems changed;
    for (qsizetype i = 0; i < after.size(); ++i)
        if (before[i] != after[i])
            changed.append(after[i]);
    return changed;
}

} // namespace

StatusMenuObject::StatusMenuObject(std::function<void(StatusCommand)> chosen)
    : m_chosen(std::move(chosen)) {}

StatusMenuObject::~StatusMenuObject() = default;

void StatusMenuObject::setEntries(const std::vector<StatusMenuEntry>& entries) {
    if (entries == m_entries)
        return;
    m_entries = entries;
    const MenuItems before = std::exchange(m_items, itemsOf(entries));
    if (hasSameShape(before, m_items))
        Q_EMIT ItemsPropertiesUpdated(changes(before, m_items), {});
    else
        Q_EMIT LayoutUpdated(++m_revision, rootId);
}

QString StatusMenuObject::textDirection() const {
    return QGuiApplication::layoutDirection() == Qt::RightToLeft ? u"rtl"_s : u"ltr"_s;
}

uint StatusMenuObject::GetLayout(int parentId, int recursionDepth, const QStringList& propertyNames,
                                 MenuLayout& layout) const {
    layout = {parentId, {}, {}};
    if (const MenuItem* item = find(parentId))
        layout.properties = only(propertyNames, item->properties);
    if (parentId == rootId) {
        layout.properties = only(propertyNames, rootProperties());
        if (recursionDepth != 0)
            for (const MenuItem& item : m_items)
                layout.children.append({item.id, only(propertyNames, item.properties), {}});
    }
    return m_revision;
}

/// No numbers at all stand for all of them.
MenuItems StatusMenuObject::GetGroupProperties(const QList<int>& ids,
                                               const QStringList& propertyNames) const {
    MenuItems found;
    if (ids.contains(rootId))
        found.append({rootId, only(propertyNames, rootProperties())});
    for (const MenuItem& item : m_items)
        if (ids.isEmpty() || ids.contains(item.id))
            found.append({item.id, only(propertyNames, item.properties)});
    return found;
}

QDBusVariant StatusMenuObject::GetProperty(int id, const QString& name) const {
    const MenuItem* item = find(id);
    const QVariant value = item ? item->properties.value(name) : QVariant();
    return QDBusVariant(value.isValid() ? value : QVariant(QString()));
}

void StatusMenuObject::Event(int id, const QString& eventId, const QDBusVariant&, uint) {
    const auto place = static_cast<std::size_t>(id - 1);
    if (eventId != u"clicked"_s || id < 1 || place >= m_entries.size() ||
        !m_entries[place].isEnabled)
        return;
    // What is chosen may take this object away, which the answer is still to be sent through.
    QMetaObject::invokeMethod(
        this, [this, command = m_entries[place].command] { m_chosen(command); },
        Qt::QueuedConnection);
}

QList<int> StatusMenuObject::EventGroup(const MenuEvents& events) {
    QList<int> unknown;
    for (const MenuEvent& event : events) {
        if (event.id != rootId && !find(event.id))
            unknown.append(event.id);
        Event(event.id, event.eventId, event.data, event.timestamp);
    }
    return unknown;
}

/// It is up to date at all times.
bool StatusMenuObject::AboutToShow(int) const {
    return false;
}

QList<int> StatusMenuObject::AboutToShowGroup(const QList<int>& ids, QList<int>& idErrors) const {
    idErrors.clear();
    for (const int id : ids)
        if (id != rootId && !find(id))
            idErrors.append(id);
    return {};
}

const MenuItem* StatusMenuObject::find(int id) const {
    const auto found = std::find_if(m_items.begin(), m_items.end(),
                                    [id](const MenuItem& item) { return item.id == id; });
    return found != m_items.end() ? &*found : nullptr;
}

} // namespace tolvar
