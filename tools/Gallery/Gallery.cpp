#include "Gallery/Gallery.h"

#include "Gallery/Pages.h"
#include "Models/AppSettings.h"

#include <QLocale>
#include <QPixmap>
#include <QWidget>

#include <memory>

namespace tolvar::gallery {

using namespace Qt::StringLiterals;

Studio::Studio(const MotionSettings& settings, InterfaceSound& sound)
    : m_driver(m_frames, settings)
    , m_feedback(m_preferences, m_haptics, sound) {
    m_preferences.registerDefaults(AppSettings::defaults());
}

bool render(const QDir& folder) {
    QLocale::setDefault(QLocale::c());
    SilentInterfaceSound silence;
    Studio studio({.isReduced = true}, silence);
    bool isWritten = folder.mkpath(u"."_s);
    for (const Page& page : pages()) {
        const std::unique_ptr<QWidget> sheet(page.make(studio.context()));
        sheet->resize(sheet->sizeHint());
        isWritten &= sheet->grab().save(folder.filePath(page.name + u".png"_s));
    }
    return isWritten;
}

} // namespace tolvar::gallery
