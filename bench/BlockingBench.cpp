#include "Extensions/HostNames.h"
#include "LongHistory.h"
#include "Models/BlockingHelpers.h"
#include "Models/CategoryStore.h"
#include "Platform/Null/MemoryPreferences.h"

#include <benchmark/benchmark.h>

namespace tolvar::bench {
namespace {

using namespace Qt::StringLiterals;

/// The six built-in categories and some custom items, as much as a person chooses.
void resolveEverything(benchmark::State& state) {
    const std::vector direct = {u"Firefox"_s, u"Slack"_s, u"zoom"_s};
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(BlockingHelpers::resolvedItems(direct, BlockCategory::defaults(),
                                                                &BlockCategory::apps));
        benchmark::DoNotOptimize(BlockingHelpers::resolvedItems(direct, BlockCategory::defaults(),
                                                                &BlockCategory::websites));
    }
}
BENCHMARK(resolveEverything)->Unit(benchmark::kMicrosecond);

/// As the history's cards do, for all of them.
void resolveHistory(benchmark::State& state) {
    const auto& history = longHistory();
    for ([[maybe_unused]] auto _ : state)
        for (const auto& session : history)
            benchmark::DoNotOptimize(BlockingHelpers::resolvedItems(
                session.blockedWebsites, session.blockCategories, &BlockCategory::websites));
}
BENCHMARK(resolveHistory)->Unit(benchmark::kMillisecond);

/// As at every poll, for each shown tab.
void hostOfATab(benchmark::State& state) {
    const auto url = u"https://www.example.com/watch?v=dQw4w9WgXcQ&list=RDdQw4w9WgXcQ#t=1"_s;
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(hostOf(url));
}
BENCHMARK(hostOfATab);

void normalizeATypedHost(benchmark::State& state) {
    const auto text = u"  WWW.Example.com/path "_s;
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(normalizedHost(text));
}
BENCHMARK(normalizeATypedHost);

void normalizeAnInternationalHost(benchmark::State& state) {
    const auto text = u"https://www.m\u00fcnchen.de/"_s;
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(normalizedHost(text));
}
BENCHMARK(normalizeAnInternationalHost);

/// Every application of a large machine in one category.
void sortApplications(benchmark::State& state) {
    MemoryPreferences preferences;
    CategoryStore store(preferences);
    std::set<QString> apps;
    for (int i = 0; i < 500; ++i)
        apps.insert(u"Application %1"_s.arg(i));
    for ([[maybe_unused]] auto _ : state)
        store.setApps(apps, u"News"_s);
}
BENCHMARK(sortApplications)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace tolvar::bench
