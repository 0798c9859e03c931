#include "Gallery/Gallery.h"
#include "Platform/Linux/Desktop/XdgIconThemeSettings.h"
#include "Platform/Linux/Desktop/XdgInstalledApplications.h"
#include "Platform/Null/NullWorkspace.h"
#include "Views/AppPicker/AppPickerList.h"
#include "Views/AppPicker/AppPickerSheet.h"
#include "Views/AppPicker/ApplicationIcons.h"
#include "Views/Shared/InstrumentStyle.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QLineEdit>
#include <QScrollBar>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace tolvar::bench {
namespace {

using namespace Qt::StringLiterals;

constexpr int applications = 500;
constexpr int sampleIcons = 8;

/// A machine with many applications: a desktop entry for each, and an icon of its own in the theme.
class Machine {
public:
    Machine() {
        const QDir icons(QStringLiteral(ICONS));
        const QStringList samples = icons.entryList({u"*.svg"_s});
        QDir(m_folder.path()).mkpath(u"applications"_s);
        const QString theme = m_folder.filePath(u"icons/hicolor/scalable/apps"_s);
        QDir().mkpath(theme);
        QFile::copy(u"/usr/share/icons/hicolor/index.theme"_s,
                    m_folder.filePath(u"icons/hicolor/index.theme"_s));
        for (int i = 0; i < applications; ++i) {
            QFile::copy(icons.filePath(samples[i % sampleIcons]),
                        u"%1/bench-app-%2.svg"_s.arg(theme).arg(i));
            writeEntry(i);
        }
    }
    DesktopEntries entries() const { return DesktopEntries({m_folder.path()}, {}, u"C"_s); }
    XdgIconThemeSettings theme() const { return {{}, {m_folder.path()}, m_folder.path()}; }

private:
    void writeEntry(int index) {
        QFile file(m_folder.filePath(u"applications/app%1.desktop"_s.arg(index)));
        if (file.open(QIODevice::WriteOnly))
            file.write(u"[Desktop Entry]\nType=Application\nName=Application %1\nExec=app%1\n"
                       "Icon=bench-app-%1\nCategories=Utility;\nStartupNotify=true\n"_s.arg(index)
                           .toUtf8());
    }

    QTemporaryDir m_folder;
};

/// The window of the program with the picker on it.
class Stage {
public:
    Stage() {
        m_window.resize(400, 578);
        m_window.show();
    }

    AppPickerSheet& sheet() { return m_sheet; }
    void paint() {
        QImage image(m_window.size(), QImage::Format_ARGB32_Premultiplied);
        m_window.render(&image);
    }

private:
    Machine m_machine;
    XdgInstalledApplications m_installed{m_machine.entries()};
    XdgIconThemeSettings m_theme = m_machine.theme();
    NullWorkspace m_workspace;
    SilentInterfaceSound m_silence;
    gallery::Studio m_studio{{.isReduced = true}, m_silence};
    ApplicationIcons m_icons{{m_installed, m_workspace, m_theme}};
    QWidget m_window;
    AppPickerSheet m_sheet{
        m_studio.context(), {m_installed, m_workspace, m_icons, u"Tolvar"_s}, m_window};
};

/// From the click to the first frame, with what is installed read afresh.
void open(benchmark::State& state) {
    Stage stage;
    for ([[maybe_unused]] auto _ : state) {
        stage.sheet().open({});
        stage.paint();
        state.PauseTiming();
        stage.sheet().sink();
        state.ResumeTiming();
    }
}
BENCHMARK(open)->Unit(benchmark::kMillisecond);

/// Of it, the reading of the desktop entries.
void readInstalled(benchmark::State& state) {
    const Machine machine;
    const XdgInstalledApplications installed(machine.entries());
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(installed.list());
}
BENCHMARK(readInstalled)->Unit(benchmark::kMillisecond);

/// A frame of scrolling into icons that have not been seen yet, and back to the top at the end.
void scroll(benchmark::State& state) {
    Stage stage;
    stage.sheet().open({});
    auto& bar = *stage.sheet().findChild<AppPickerList*>()->verticalScrollBar();
    for ([[maybe_unused]] auto _ : state) {
        bar.setValue(bar.value() < bar.maximum() ? bar.value() + 120 : 0);
        stage.paint();
    }
}
BENCHMARK(scroll)->Unit(benchmark::kMillisecond);

/// A letter typed into the search, to the frame that shows it.
void search(benchmark::State& state) {
    Stage stage;
    stage.sheet().open({});
    auto& line = *stage.sheet().findChild<QLineEdit*>();
    for ([[maybe_unused]] auto _ : state) {
        line.setText(line.text() == u"cation 1"_s ? u"cation 12"_s : u"cation 1"_s);
        stage.paint();
    }
}
BENCHMARK(search)->Unit(benchmark::kMillisecond);

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
