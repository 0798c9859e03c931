#pragma once

#include <QString>

#include <vector>

namespace tolvar {

/// Of `candidates`, those that `wanted` means: the ones whose first key it is; else the ones whose
/// second key it is; else those of which either key differs only in case. Each key is a function
/// of a candidate. An empty text means nothing.
template<typename Candidate, typename FirstKey, typename SecondKey>
std::vector<const Candidate*> matches(const std::vector<Candidate>& candidates,
                                      const QString& wanted, FirstKey firstKey,
                                      SecondKey secondKey) {
    std::vector<const Candidate*> found;
    const auto collect = [&](auto isMatch) {
        for (const Candidate& candidate : candidates)
            if (isMatch(candidate))
                found.push_back(&candidate);
        return !found.empty();
    };
    const auto isLike = [&](const QString& key) {
        return key.compare(wanted, Qt::CaseInsensitive) == 0;
    };
    if (!wanted.isEmpty())
        collect([&](const Candidate& it) { return firstKey(it) == wanted; }) ||
            collect([&](const Candidate& it) { return secondKey(it) == wanted; }) ||
            collect(
                [&](const Candidate& it) { return isLike(firstKey(it)) || isLike(secondKey(it)); });
    return found;
}

} // namespace tolvar
