#pragma once

#include "Models/BlockCategory.h"

#include <QObject>

#include <optional>
#include <set>
#include <vector>

namespace tolvar {

class Preferences;

/// The one list of all block categories, kept in the preferences under "blockCategories".
///
/// Every change is published with `categoriesChanged` and then saved. An operation on an unknown
/// id changes and saves nothing. A list that cannot be read is replaced by the built-in one, in
/// memory only until the first change.
class CategoryStore final : public QObject {
    Q_OBJECT

public:
    /// `preferences` outlives the store.
    explicit CategoryStore(Preferences& preferences, QObject* parent = nullptr);
    ~CategoryStore() override;

    /// The store of this process; the composition root makes it before anyone asks.
    static CategoryStore& shared();

    /// Whether a normalised host looks like a website's: a dot within, and nothing but letters and
    /// digits of any script, dots and hyphens.
    static bool isWebsite(const QString& host);

    /// In display order: built-in ones as loaded, the user's own behind them.
    const std::vector<BlockCategory>& categories() const { return m_categories; }
    std::optional<BlockCategory> category(const QString& id) const;

    /// Appends and returns an empty category without a name.
    BlockCategory addCategory();
    /// Removes one of the user's own categories; built-in ones stay.
    void deleteCategory(const QString& id);
    /// The name is taken as given, also an empty one.
    void rename(const QString& id, const QString& name);
    /// Gives a built-in category its name, applications and websites back.
    void restoreDefaults(const QString& id);
    /// Stores the names in natural order.
    void setApps(const std::set<QString>& apps, const QString& id);
    void removeApp(const QString& app, const QString& id);
    /// Appends the normalised host; false when the text names no site, the category is unknown
    /// or has the site already.
    bool addWebsite(const QString& site, const QString& id);
    /// `host` as stored.
    void removeWebsite(const QString& host, const QString& id);
    /// Replaces the whole list by the built-in categories.
    void restoreAllDefaults();

Q_SIGNALS:
    void categoriesChanged();

private:
    BlockCategory* find(const QString& id);
    void publishAndSave();

    Preferences& m_preferences;
    std::vector<BlockCategory> m_categories;
};

} // namespace tolvar
