#pragma once

#include "Models/BlockCategory.h"

#include <QStringList>

#include <cstddef>
#include <unordered_map>
#include <vector>

namespace tolvar {

/// What a choice blocks, as a card says it in short.
struct BlockedSummary {
    /// Sorted, each once.
    QStringList appNames;
    int websiteCount = 0;

    bool isEmpty() const { return appNames.isEmpty() && websiteCount < 1; }
    bool operator==(const BlockedSummary&) const = default;
};

/// The summaries of choices that have been asked for. The same choices come again and again in a
/// long history; each is resolved once.
class BlockedSummaries {
public:
    struct Choice {
        std::vector<QString> apps;
        std::vector<QString> websites;
        std::vector<BlockCategory> categories;

        bool operator==(const Choice&) const = default;
    };

    /// How many are kept: more than that, and all are forgotten.
    static constexpr std::size_t capacity = 512;

    /// Stays valid until the next call.
    const BlockedSummary& of(const std::vector<QString>& apps, const std::vector<QString>& websites,
                             const std::vector<BlockCategory>& categories);
    /// How many choices had to be resolved so far.
    int resolved() const { return m_resolved; }

private:
    struct Known {
        Choice choice;
        BlockedSummary summary;
    };

    std::unordered_multimap<std::size_t, Known> m_known;
    int m_resolved = 0;
};

} // namespace tolvar
