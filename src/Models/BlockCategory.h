#pragma once

#include <QString>

#include <vector>

namespace tolvar {

/// A named group of applications and websites that a session can block as one unit.
struct BlockCategory {
    /// Built-in categories use their English name, the user's own a fresh upper-case UUID.
    QString id;
    /// May be empty: a new category has no name yet.
    QString name;
    /// Application display names.
    std::vector<QString> apps;
    /// Normalised hosts (see `normalizedHost`), in insertion order.
    std::vector<QString> websites;

    /// The six built-in categories, in their display order.
    static const std::vector<BlockCategory>& defaults();
    /// The built-in category with this id, or null.
    static const BlockCategory* builtIn(const QString& id);
    /// What a bare category name stands for: the built-in category of that id, else an empty
    /// category with this id and name.
    static BlockCategory fromBareName(const QString& name);

    /// Whether a built-in category holds other applications or websites than it was shipped with;
    /// order and name do not count. False for the user's own.
    bool differsFromDefaults() const;

    bool operator==(const BlockCategory&) const = default;
};

} // namespace tolvar
