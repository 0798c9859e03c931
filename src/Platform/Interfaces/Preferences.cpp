#include "Platform/Interfaces/Preferences.h"

#include <algorithm>
#include <iterator>

namespace tolvar {

/// Outlives the preferences while subscriptions to it are held.
struct Preferences::Observers {
    struct Entry {
        QString key;
        std::function<void()> changed;
    };
    std::map<int, Entry> entries;
    int nextId = 0;

    bool concern(const QString& key) const {
        return std::any_of(entries.begin(), entries.end(),
                           [&](const auto& entry) { return entry.second.key == key; });
    }

    void notify(const std::vector<QString>& keys) {
        std::vector<int> concerned;
        for (const auto& [id, entry] : entries)
            if (std::find(keys.begin(), keys.end(), entry.key) != keys.end())
                concerned.push_back(id);
        for (const int id : concerned)
            if (const auto found = entries.find(id); found != entries.end()) {
                const auto changed = found->second.changed;
                changed();
            }
    }
};

Preferences::Transaction::Transaction(Preferences& preferences)
    : m_preferences(preferences) {
    m_preferences.beginTransaction();
}

Preferences::Transaction::~Transaction() {
    m_preferences.endTransaction();
}

Preferences::Preferences()
    : m_observers(std::make_shared<Observers>()) {}
Preferences::~Preferences() = default;

template<typename T>
T Preferences::typedValue(const QString& key) const {
    if (const auto stored = storedValue(key))
        if (const auto* value = std::get_if<T>(&*stored))
            return *value;
    if (const auto found = m_defaults.find(key); found != m_defaults.end())
        if (const auto* value = std::get_if<T>(&found->second))
            return *value;
    return T{};
}

bool Preferences::boolean(const QString& key) const {
    return typedValue<bool>(key);
}

double Preferences::number(const QString& key) const {
    return typedValue<double>(key);
}

QString Preferences::text(const QString& key) const {
    return typedValue<QString>(key);
}

std::optional<QByteArray> Preferences::data(const QString& key) const {
    if (auto stored = storedValue(key))
        if (auto* bytes = std::get_if<QByteArray>(&*stored))
            return std::move(*bytes);
    return std::nullopt;
}

std::optional<Preferences::Value> Preferences::storedValue(const QString& key) const {
    if (const auto found = m_collected.find(key); found != m_collected.end())
        return found->second;
    return read(key);
}

void Preferences::registerDefaults(const std::map<QString, Value>& defaults) {
    for (const auto& [key, value] : defaults)
        m_defaults.insert_or_assign(key, value);
}

Subscription Preferences::observe(const QString& key, std::function<void()> changed) {
    const int id = m_observers->nextId++;
    m_observers->entries.emplace(id, Observers::Entry{key, std::move(changed)});
    return Subscription([observers = std::weak_ptr(m_observers), id] {
        if (const auto alive = observers.lock())
            alive->entries.erase(id);
    });
}

void Preferences::change(const QString& key, Change change) {
    if (m_openTransactions > 0)
        m_collected.insert_or_assign(key, std::move(change));
    else
        commit({{key, std::move(change)}});
}

void Preferences::beginTransaction() {
    ++m_openTransactions;
}

void Preferences::endTransaction() {
    if (--m_openTransactions > 0 || m_collected.empty())
        return;
    commit(std::exchange(m_collected, {}));
}

void Preferences::commit(const Changes& changes) {
    std::vector<QString> altered;
    for (const auto& [key, change] : changes)
        if (m_observers->concern(key) && read(key) != change)
            altered.push_back(key);
    write(changes);
    const auto observers = m_observers;
    observers->notify(altered);
}

} // namespace tolvar
