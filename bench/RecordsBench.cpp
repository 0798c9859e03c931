#include "LongHistory.h"
#include "Models/RecordCoding.h"

#include <benchmark/benchmark.h>

#include <utility>

namespace tolvar::bench {
namespace {

void countBytes(benchmark::State& state, const QByteArray& json) {
    state.SetBytesProcessed(state.iterations() * json.size());
    state.counters["MB"] = static_cast<double>(json.size()) / 1e6;
}

/// As at start: the document fresh from the store, read once.
void decodeHistory(benchmark::State& state) {
    const auto stored = RecordCoding::encode(longHistory()).value();
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        QByteArray document(stored.constData(), stored.size());
        state.ResumeTiming();
        auto history = RecordCoding::decodeSessions(std::move(document));
        benchmark::DoNotOptimize(history);
        state.PauseTiming();
        history.reset();
        state.ResumeTiming();
    }
    countBytes(state, stored);
}
BENCHMARK(decodeHistory)->Unit(benchmark::kMillisecond);

void encodeHistory(benchmark::State& state) {
    const auto& history = longHistory();
    std::optional<QByteArray> json;
    for ([[maybe_unused]] auto _ : state)
        json = RecordCoding::encode(history);
    countBytes(state, *json);
}
BENCHMARK(encodeHistory)->Unit(benchmark::kMillisecond);

/// As at the end of a session: one more entry, and the whole document anew.
void fileOneMoreSession(benchmark::State& state) {
    auto history = longHistory();
    const auto ended = history.back();
    std::optional<QByteArray> json;
    for ([[maybe_unused]] auto _ : state) {
        history.push_back(ended);
        json = RecordCoding::encode(history);
        history.pop_back();
    }
    countBytes(state, *json);
}
BENCHMARK(fileOneMoreSession)->Unit(benchmark::kMillisecond);

/// As at every pause, resumption and extension.
void encodeCurrentSession(benchmark::State& state) {
    const auto& session = longHistory().back();
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(RecordCoding::encode(session));
}
BENCHMARK(encodeCurrentSession)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace tolvar::bench
