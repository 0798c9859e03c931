#pragma once

#include "Extensions/Subscription.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <utility>
#include <variant>
#include <vector>

namespace tolvar {

/// The user's preferences: typed values under text keys, kept on the machine.
///
/// Reading never fails: a key that is absent, or holds a value of another type than the one asked
/// for, reads as its registered factory value, and a key without one as false, 0 or nothing.
/// Writing never fails for the caller either: what cannot be stored stays readable for the life of
/// the process and is stored as soon as that works again.
class Preferences {
public:
    using Value = std::variant<bool, double, QString, QByteArray>;
    /// A value to store, or nothing to remove the key.
    using Change = std::optional<Value>;
    using Changes = std::map<QString, Change>;

    /// While it lives, changes are collected; they are stored together, all or none, when the
    /// outermost one ends. Reading within a transaction sees the collected changes.
    class [[nodiscard]] Transaction {
    public:
        explicit Transaction(Preferences& preferences);
        ~Transaction();
        Transaction(const Transaction&) = delete;
        Transaction& operator=(const Transaction&) = delete;

    private:
        Preferences& m_preferences;
    };

    Preferences();
    virtual ~Preferences();
    Preferences(const Preferences&) = delete;
    Preferences& operator=(const Preferences&) = delete;

    bool boolean(const QString& key) const;
    double number(const QString& key) const;
    QString text(const QString& key) const;
    /// A JSON document or other bytes; factory values do not apply.
    std::optional<QByteArray> data(const QString& key) const;
    /// What is stored under the key itself, without factory values.
    std::optional<Value> storedValue(const QString& key) const;

    void setBoolean(const QString& key, bool value) { change(key, value); }
    void setNumber(const QString& key, double value) { change(key, value); }
    void setText(const QString& key, const QString& value) { change(key, value); }
    void setData(const QString& key, const QByteArray& value) { change(key, value); }
    void remove(const QString& key) { change(key, std::nullopt); }

    /// Adds factory values. They are never stored.
    void registerDefaults(const std::map<QString, Value>& defaults);

    /// Calls `changed` after each change of the key through this object that altered what it
    /// holds; not at once. Inside a transaction, after its end.
    [[nodiscard]] Subscription observe(const QString& key, std::function<void()> changed);

private:
    /// The stored value, or nothing when there is none.
    virtual std::optional<Value> read(const QString& key) const = 0;
    /// Stores the changes, all or none.
    virtual void write(const Changes& changes) = 0;

    void change(const QString& key, Change change);
    void beginTransaction();
    void endTransaction();
    void commit(const Changes& changes);
    template<typename T>
    T typedValue(const QString& key) const;

    struct Observers;
    std::map<QString, Value> m_defaults;
    Changes m_collected;
    int m_openTransactions = 0;
    std::shared_ptr<Observers> m_observers;
};

} // namespace tolvar
