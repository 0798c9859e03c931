#include "Gallery/Gallery.h"
#include "Platform/Common/QtTimerService.h"
#include "Views/Paint/Paint.h"
#include "Views/Shared/CardList.h"
#include "Views/Shared/InstrumentStyle.h"
#include "Views/Theme/Instrument.h"

#include <QApplication>
#include <QImage>
#include <QScrollBar>

#include <benchmark/benchmark.h>

namespace tolvar::bench {
namespace {

using namespace Qt::StringLiterals;

constexpr int rows = 36'000;
constexpr QSize windowSize{400, 440};
constexpr int notch = 48;

class PlainCard final : public QWidget {
public:
    QUuid id;

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        Paint::bevel(painter, rect(), 10, Bevel::card);
        Paint::text(painter, rect().adjusted(14, 0, -14, 0), u"Session %1"_s.arg(id.data1),
                    Instrument::font(14, QFont::Medium), Instrument::Palette::label);
    }
};

class PlainCards final : public CardSource {
public:
    QWidget* makeCard() override { return new PlainCard; }
    void fillCard(QWidget& card, const QUuid& id) override {
        static_cast<PlainCard&>(card).id = id;
        card.update();
    }
    std::vector<SwipeAction> actions(const QUuid&) override {
        return {{.title = u"Start"_s, .symbol = Symbol::play},
                {.title = u"Save"_s, .symbol = Symbol::bookmark},
                {.title = u"Delete"_s, .symbol = Symbol::trash}};
    }
    QString cardName(const QUuid& id) const override { return u"Session %1"_s.arg(id.data1); }
};

const std::vector<QUuid>& ids() {
    static const std::vector<QUuid> made = [] {
        std::vector<QUuid> all;
        for (uint i = 0; i < rows; ++i)
            all.emplace_back(i, ushort(0), ushort(0), uchar(0), uchar(0), uchar(0), uchar(0),
                             uchar(0), uchar(0), uchar(0), uchar(1));
        return all;
    }();
    return made;
}

class Stage {
public:
    Stage() {
        m_window.resize(windowSize);
        m_list.resize(windowSize);
        m_window.show();
    }

    CardList& list() { return m_list; }
    void paint() { m_window.render(&m_image); }

private:
    SilentInterfaceSound m_silence;
    gallery::Studio m_studio{{.isReduced = true}, m_silence};
    QtTimerService m_timers;
    PlainCards m_cards;
    QWidget m_window;
    CardList m_list{m_studio.context(), m_timers, m_cards, {}, &m_window};
    QImage m_image{windowSize, QImage::Format_ARGB32_Premultiplied};
};

/// From nothing to the first frame.
void openLongList(benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state) {
        Stage stage;
        stage.list().setIds(ids(), CardList::Change::atOnce);
        stage.paint();
    }
}
BENCHMARK(openLongList)->Unit(benchmark::kMillisecond);

/// A frame in which a wheel has turned by one notch.
void scrollByNotch(benchmark::State& state) {
    Stage stage;
    stage.list().setIds(ids(), CardList::Change::atOnce);
    QScrollBar& bar = *stage.list().verticalScrollBar();
    for ([[maybe_unused]] auto _ : state) {
        bar.setValue(bar.value() < bar.maximum() ? bar.value() + notch : 0);
        stage.paint();
    }
    state.counters["widgets"] =
        static_cast<double>(stage.list().widgets().used + stage.list().widgets().spare);
}
BENCHMARK(scrollByNotch)->Unit(benchmark::kMillisecond);

/// The same without the painting: what the list itself adds to a frame.
void scrollUnpainted(benchmark::State& state) {
    Stage stage;
    stage.list().setIds(ids(), CardList::Change::atOnce);
    QScrollBar& bar = *stage.list().verticalScrollBar();
    for ([[maybe_unused]] auto _ : state)
        bar.setValue(bar.value() < bar.maximum() ? bar.value() + notch : 0);
}
BENCHMARK(scrollUnpainted)->Unit(benchmark::kMicrosecond);

/// A frame of a jump to elsewhere, in which every row shows another record.
void jump(benchmark::State& state) {
    Stage stage;
    stage.list().setIds(ids(), CardList::Change::atOnce);
    QScrollBar& bar = *stage.list().verticalScrollBar();
    for ([[maybe_unused]] auto _ : state) {
        bar.setValue((bar.value() + bar.maximum() / 3) % bar.maximum());
        stage.paint();
    }
}
BENCHMARK(jump)->Unit(benchmark::kMillisecond);

/// A row goes, to the first frame after it.
void removeOne(benchmark::State& state) {
    Stage stage;
    auto left = ids();
    stage.list().setIds(left, CardList::Change::atOnce);
    for ([[maybe_unused]] auto _ : state) {
        left.erase(left.begin() + 2);
        stage.list().setIds(left, CardList::Change::animated);
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
