#include "Gallery/Gallery.h"
#include "Gallery/Pages.h"
#include "Views/Shared/InstrumentField.h"
#include "Views/Shared/InstrumentSlider.h"
#include "Views/Shared/InstrumentStyle.h"
#include "Views/Shared/InstrumentSwitch.h"
#include "Views/Shared/KeyButton.h"
#include "Views/Shared/Lamp.h"

#include <QApplication>
#include <QImage>
#include <QMouseEvent>

#include <benchmark/benchmark.h>

#include <functional>
#include <memory>

namespace tolvar::bench {
namespace {

using namespace Qt::StringLiterals;

gallery::Studio& studio() {
    static SilentInterfaceSound silence;
    static gallery::Studio made({.isReduced = true}, silence);
    return made;
}

void paint(benchmark::State& state, QWidget& widget) {
    widget.resize(widget.sizeHint());
    QImage image(widget.size(), QImage::Format_ARGB32_Premultiplied);
    for ([[maybe_unused]] auto _ : state)
        widget.render(&image);
}

using Make = std::function<std::unique_ptr<QWidget>()>;

void paintControl(benchmark::State& state, const Make& make) {
    paint(state, *make());
}

std::unique_ptr<KeyButton> key() {
    auto made = std::make_unique<KeyButton>(studio().context(), KeyStyle::standard(), u"Pause"_s);
    made->setSymbol(Symbol::pause);
    return made;
}

/// As in every frame of a press.
std::unique_ptr<KeyButton> pressedKey() {
    auto made = key();
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(4, 4), QPointF(4, 4), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(made.get(), &press);
    return made;
}

std::unique_ptr<QWidget> lamp() {
    auto made = std::make_unique<Lamp>(studio().driver());
    made->setOn(true);
    return made;
}

void registerAll() {
    const std::pair<const char*, Make> controls[] = {
        {"key", key},
        {"pressedKey", pressedKey},
        {"lamp", lamp},
        {"switch",
         [] { return std::make_unique<InstrumentSwitch>(studio().context(), u"Sounds"_s); }},
        {"slider",
         [] {
             return std::make_unique<InstrumentSlider>(studio().context(), u"Volume"_s,
                                                       InstrumentSlider::Style());
         }},
        {"field", [] {
             return std::make_unique<InstrumentField>(studio().context(), u"What is your goal?"_s,
                                                      InstrumentField::Style());
         }}};
    for (const auto& [name, make] : controls)
        benchmark::RegisterBenchmark(name, paintControl, make)->Unit(benchmark::kMicrosecond);
    for (const auto& page : gallery::pages()) {
        const auto paintPage = [page](benchmark::State& state) {
            const std::unique_ptr<QWidget> sheet(page.make(studio().context()));
            paint(state, *sheet);
        };
        benchmark::RegisterBenchmark(("page " + page.name.toStdString()).c_str(), paintPage)
            ->Unit(benchmark::kMillisecond);
    }
}

} // namespace
} // namespace tolvar::bench

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QApplication::setStyle(new tolvar::InstrumentStyle);
    benchmark::Initialize(&argc, argv);
    tolvar::bench::registerAll();
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
