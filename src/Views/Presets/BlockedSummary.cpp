#include "Views/Presets/BlockedSummary.h"

#include "Models/BlockingHelpers.h"

#include <QHash>

namespace tolvar {

namespace {

std::size_t hashOf(const std::vector<QString>& texts, std::size_t seed) {
    return qHashRange(texts.begin(), texts.end(), seed);
}

std::size_t hashOf(const std::vector<QString>& apps, const std::vector<QString>& websites,
                   const std::vector<BlockCategory>& categories) {
    std::size_t hash = hashOf(websites, hashOf(apps, 0));
    for (const BlockCategory& category : categories)
        hash = hashOf(category.websites, hashOf(category.apps, qHash(category.id, hash)));
    return hash;
}

BlockedSummary resolve(const BlockedSummaries::Choice& choice) {
    using BlockingHelpers::resolvedItems;
    const auto apps = resolvedItems(choice.apps, choice.categories, &BlockCategory::apps);
    const auto sites = resolvedItems(choice.websites, choice.categories, &BlockCategory::websites);
    return {QStringList(apps.begin(), apps.end()), static_cast<int>(sites.size())};
}

} // namespace

const BlockedSummary& BlockedSummaries::of(const std::vector<QString>& apps,
                                           const std::vector<QString>& websites,
                                           const std::vector<BlockCategory>& categories) {
    const std::size_t hash = hashOf(apps, websites, categories);
    const auto [first, last] = m_known.equal_range(hash);
    for (auto known = first; known != last; ++known) {
        const Choice& choice = known->second.choice;
        if (choice.apps == apps && choice.websites == websites && choice.categories == categories)
            return known->second.summary;
    }
    if (m_known.size() >= capacity)
        m_known.clear();
    ++m_resolved;
    Choice choice{apps, websites, categories};
    BlockedSummary summary = resolve(choice);
    return m_known.emplace(hash, Known{std::move(choice), std::move(summary)})->second.summary;
}

} // namespace tolvar
