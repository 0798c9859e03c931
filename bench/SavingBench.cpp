#include "LongHistory.h"
#include "Models/RecordCoding.h"
#include "Platform/Common/QtTimerService.h"
#include "Platform/Common/SqlitePreferences.h"
#include "Platform/Null/NullSystemLog.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <utility>

namespace tolvar::bench {
namespace {

using namespace Qt::StringLiterals;

const QString historyKey = u"sessionHistory"_s;
const QString currentKey = u"currentSession"_s;

/// A store in a folder of its own, on the disk that TMPDIR names.
class Store {
public:
    Preferences& preferences() { return m_preferences; }

    /// What the end of a session stores: it leaves its place and the history has one more.
    void file(const std::vector<FocusSession>& history) {
        const Preferences::Transaction together(m_preferences);
        m_preferences.setData(historyKey, RecordCoding::encode(history).value());
        m_preferences.remove(currentKey);
    }

private:
    QTemporaryDir m_folder;
    NullSystemLog m_log;
    QtTimerService m_timers;
    SqlitePreferences m_preferences{m_folder.filePath(u"preferences.sqlite3"_s), m_log, m_timers};
};

void saveHistory(benchmark::State& state) {
    Store store;
    const auto json = RecordCoding::encode(longHistory()).value();
    for ([[maybe_unused]] auto _ : state)
        store.preferences().setData(historyKey, json);
}
BENCHMARK(saveHistory)->Unit(benchmark::kMillisecond)->UseRealTime();

/// Filing as a person waits for it: append, encode, store, until it is safe on the disk.
void fileAndSaveOneMoreSession(benchmark::State& state) {
    Store store;
    auto history = longHistory();
    const auto ended = history.back();
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        store.preferences().setData(currentKey, RecordCoding::encode(ended).value());
        state.ResumeTiming();
        history.push_back(ended);
        store.file(history);
        history.pop_back();
    }
}
BENCHMARK(fileAndSaveOneMoreSession)->Unit(benchmark::kMillisecond)->UseRealTime();

/// As at start: from the file to the records.
void loadHistory(benchmark::State& state) {
    Store store;
    store.file(longHistory());
    for ([[maybe_unused]] auto _ : state) {
        auto json = store.preferences().data(historyKey);
        auto history = RecordCoding::decodeSessions(*std::move(json));
        benchmark::DoNotOptimize(history);
        state.PauseTiming();
        history.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(loadHistory)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace tolvar::bench
