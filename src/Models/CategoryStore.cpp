#include "Models/CategoryStore.h"

#include "Extensions/HostNames.h"
#include "Extensions/TextOrder.h"
#include "Models/RecordCoding.h"
#include "Platform/Interfaces/Preferences.h"

#include <QUuid>

#include <algorithm>

namespace tolvar {

namespace {

const QString storageKey = QStringLiteral("blockCategories");

CategoryStore* sharedStore = nullptr;

bool contains(const std::vector<QString>& items, const QString& item) {
    return std::find(items.begin(), items.end(), item) != items.end();
}

} // namespace

CategoryStore::CategoryStore(Preferences& preferences, QObject* parent)
    : QObject(parent)
    , m_preferences(preferences)
    , m_categories(BlockCategory::defaults()) {
    if (const auto json = m_preferences.data(storageKey))
        if (auto stored = RecordCoding::decodeCategories(*json))
            m_categories = std::move(*stored);
    if (sharedStore == nullptr)
        sharedStore = this;
}

CategoryStore::~CategoryStore() {
    if (sharedStore == this)
        sharedStore = nullptr;
}

CategoryStore& CategoryStore::shared() {
    Q_ASSERT(sharedStore != nullptr);
    return *sharedStore;
}

bool CategoryStore::isWebsite(const QString& host) {
    if (!host.contains(u'.') || host.startsWith(u'.') || host.endsWith(u'.'))
        return false;
    const auto scalars = host.toUcs4();
    return std::all_of(scalars.begin(), scalars.end(), [](char32_t scalar) {
        return QChar::isLetterOrNumber(scalar) || QChar::isMark(scalar) || scalar == U'.' ||
               scalar == U'-';
    });
}

std::optional<BlockCategory> CategoryStore::category(const QString& id) const {
    const auto found = std::find_if(m_categories.begin(), m_categories.end(),
                                    [&](const auto& category) { return category.id == id; });
    return found != m_categories.end() ? std::optional(*found) : std::nullopt;
}

BlockCategory CategoryStore::addCategory() {
    BlockCategory category;
    category.id = QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
    m_categories.push_back(category);
    publishAndSave();
    return category;
}

void CategoryStore::deleteCategory(const QString& id) {
    if (BlockCategory::builtIn(id) != nullptr)
        return;
    if (std::erase_if(m_categories, [&](const auto& category) { return category.id == id; }) > 0)
        publishAndSave();
}

void CategoryStore::rename(const QString& id, const QString& name) {
    if (auto* category = find(id)) {
        category->name = name;
        publishAndSave();
    }
}

void CategoryStore::restoreDefaults(const QString& id) {
    const auto* original = BlockCategory::builtIn(id);
    auto* category = find(id);
    if (original == nullptr || category == nullptr)
        return;
    *category = *original;
    publishAndSave();
}

void CategoryStore::setApps(const std::set<QString>& apps, const QString& id) {
    if (auto* category = find(id)) {
        category->apps.assign(apps.begin(), apps.end());
        std::stable_sort(category->apps.begin(), category->apps.end(), NaturalOrder());
        publishAndSave();
    }
}

void CategoryStore::removeApp(const QString& app, const QString& id) {
    if (auto* category = find(id)) {
        std::erase(category->apps, app);
        publishAndSave();
    }
}

bool CategoryStore::addWebsite(const QString& site, const QString& id) {
    const auto host = normalizedHost(site);
    auto* category = find(id);
    if (!isWebsite(host) || category == nullptr || contains(category->websites, host))
        return false;
    category->websites.push_back(host);
    publishAndSave();
    return true;
}

void CategoryStore::removeWebsite(const QString& host, const QString& id) {
    if (auto* category = find(id)) {
        std::erase(category->websites, host);
        publishAndSave();
    }
}

void CategoryStore::restoreAllDefaults() {
    m_categories = BlockCategory::defaults();
    publishAndSave();
}

BlockCategory* CategoryStore::find(const QString& id) {
    const auto found = std::find_if(m_categories.begin(), m_categories.end(),
                                    [&](const auto& category) { return category.id == id; });
    return found != m_categories.end() ? &*found : nullptr;
}

void CategoryStore::publishAndSave() {
    Q_EMIT categoriesChanged();
    if (const auto json = RecordCoding::encode(m_categories))
        m_preferences.setData(storageKey, *json);
}

} // namespace tolvar
