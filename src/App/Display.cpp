#include "App/Display.h"

#include "App/Adapters.h"
#include "Platform/Interfaces/PanelWindows.h"
#include "Views/Shared/InstrumentStyle.h"
#include "Views/Theme/Instrument.h"

#include <QApplication>

namespace tolvar {

bool Display::isReachable() {
    return Adapters::isDisplayReachable();
}

std::unique_ptr<QCoreApplication> Display::makeApplication(int& argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "xcb");
    QGuiApplication::setDesktopFileName(QStringLiteral("app.tolvar.Tolvar"));
    QApplication::setQuitOnLastWindowClosed(false);
    auto application = std::make_unique<QApplication>(argc, argv);
    const std::shared_ptr<PanelWindows> panels = Adapters::panelWindows();
    QApplication::setStyle(new InstrumentStyle([panels] { return panels->showsTranslucency(); }));
    QApplication::setFont(Instrument::font(12));
    return application;
}

} // namespace tolvar
