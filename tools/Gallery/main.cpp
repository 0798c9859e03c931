#include "Gallery/Gallery.h"
#include "Gallery/GalleryWindow.h"
#include "Gallery/Speaker.h"
#include "Views/Shared/InstrumentStyle.h"

#include <QApplication>
#include <QCommandLineParser>

using namespace Qt::StringLiterals;

/// tolvar-gallery                  shows every control in every state
/// tolvar-gallery --render FOLDER  draws them into PNGs
int main(int argc, char** argv) {
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    const QApplication application(argc, argv);
    QApplication::setStyle(new tolvar::InstrumentStyle);
    QCommandLineParser parser;
    const QCommandLineOption render(u"render"_s, u"Draw every page into a PNG in the folder."_s,
                                    u"folder"_s);
    parser.addOption(render);
    parser.addHelpOption();
    parser.process(application);
    if (parser.isSet(render))
        return tolvar::gallery::render(QDir(parser.value(render))) ? 0 : 1;
    tolvar::gallery::Speaker speaker;
    tolvar::gallery::Studio studio({}, speaker.sound());
    tolvar::gallery::GalleryWindow window(studio);
    window.show();
    return QApplication::exec();
}
