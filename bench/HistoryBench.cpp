#include "Gallery/Gallery.h"
#include "Gallery/SampleApplications.h"
#include "Gallery/StillDesk.h"
#include "LongHistory.h"
#include "Platform/Null/NullIconThemeSettings.h"
#include "Views/AppPicker/ApplicationIcons.h"
#include "Views/FocusWindow/FocusView.h"
#include "Views/FocusWindow/ModeButton.h"
#include "Views/Shared/CardList.h"
#include "Views/Shared/InstrumentStyle.h"

#include <QApplication>
#include <QImage>
#include <QScrollBar>

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>

namespace tolvar::bench {
namespace {

/// Points that a quick scroll goes in a frame.
constexpr int frameStep = 120;

/// The window over a history that nobody outgrows.
class Stage {
public:
    Stage() {
        m_view->show();
        paint();
    }

    void openHistory() {
        m_view->findChildren<ModeButton*>().at(static_cast<int>(FocusTab::history))->click();
    }
    CardList& list() {
        for (auto* list : m_view->findChildren<CardList*>())
            if (!list->ids().empty())
                return *list;
        std::abort();
    }
    void paint() {
        QCoreApplication::processEvents();
        m_view->render(&m_image);
    }
    gallery::StillDesk& desk() { return m_desk; }

private:
    SilentInterfaceSound m_silence;
    gallery::Studio m_studio{{.isReduced = true}, m_silence};
    gallery::StillDesk m_desk{
        std::nullopt, {.history = longHistory(), .now = longHistory().back().startTime.value()}};
    gallery::SampleApplications m_installed{gallery::SampleApplications::few()};
    NullIconThemeSettings m_theme;
    ApplicationIcons m_icons{{m_installed, m_desk.workspace, m_theme}};
    std::unique_ptr<FocusView> m_view =
        std::make_unique<FocusView>(FocusView::Environment{.context = m_studio.context(),
                                                           .timers = m_desk.time,
                                                           .focusManager = m_desk.manager,
                                                           .categoryStore = m_desk.categories,
                                                           .installed = m_installed,
                                                           .workspace = m_desk.workspace,
                                                           .icons = m_icons,
                                                           .ownName = {}});
    QImage m_image{FocusView::usualSize, QImage::Format_ARGB32_Premultiplied};
};

/// From the click on the tab to the first frame, the first time that it is opened.
void open(benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        auto stage = std::make_unique<Stage>();
        state.ResumeTiming();
        stage->openHistory();
        stage->paint();
        state.PauseTiming();
        stage.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(open)->Unit(benchmark::kMillisecond)->Iterations(5);

/// KiB of memory that the process has of its own.
double residentMemory() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.rfind("RssAnon:", 0) == 0)
            return std::stod(line.substr(8));
    return 0;
}

/// A frame of scrolling through all of it; "grown" is what that has cost in KiB of memory.
void scroll(benchmark::State& state) {
    Stage stage;
    stage.openHistory();
    stage.paint();
    QScrollBar& bar = *stage.list().verticalScrollBar();
    const double before = residentMemory();
    for ([[maybe_unused]] auto _ : state) {
        bar.setValue(bar.value() < bar.maximum() ? bar.value() + frameStep : 0);
        stage.paint();
    }
    state.counters["grown"] = residentMemory() - before;
    state.counters["widgets"] = static_cast<double>(stage.list().widgets().used);
}
BENCHMARK(scroll)->Unit(benchmark::kMillisecond)->MinTime(3);

/// What the list does when one session is deleted, storing left out.
void removeOne(benchmark::State& state) {
    Stage stage;
    stage.openHistory();
    stage.paint();
    std::vector<QUuid> ids = stage.list().ids();
    for ([[maybe_unused]] auto _ : state) {
        ids.erase(ids.begin() + 1);
        stage.list().setIds(ids, CardList::Change::animated);
        stage.paint();
    }
}
BENCHMARK(removeOne)->Unit(benchmark::kMillisecond)->Iterations(50);

} // namespace
} // namespace tolvar::bench

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QApplication::setStyle(new tolvar::InstrumentStyle);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
