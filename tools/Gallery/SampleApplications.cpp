#include "Gallery/SampleApplications.h"

#include <QString>

#include <utility>

namespace tolvar::gallery {

using namespace Qt::StringLiterals;

std::vector<InstalledApplication> SampleApplications::few(Icons icons) {
    const std::pair<QString, QString> names[] = {
        {u"Arcade"_s, u"game"_s},   {u"Browser"_s, u"browser"_s},  {u"Chat"_s, u"chat"_s},
        {u"Mail"_s, u"mail"_s},     {u"Music"_s, u"music"_s},      {u"Notes"_s, u"notes"_s},
        {u"Photos"_s, u"photos"_s}, {u"Terminal"_s, u"terminal"_s}};
    std::vector<InstalledApplication> made;
    for (const auto& [name, icon] : names)
        made.push_back(
            {name, name,
             icons == Icons::all ? u"%1/%2.svg"_s.arg(QStringLiteral(ICONS), icon) : QString()});
    return made;
}

std::vector<InstalledApplication> SampleApplications::many() {
    const auto some = few();
    std::vector<InstalledApplication> made;
    for (std::size_t i = 0; i < 500; ++i) {
        made.push_back(some[i % some.size()]);
        made.back().displayName += u" %1"_s.arg(i + 1, 3, 10, QChar(u'0'));
    }
    return made;
}

std::vector<InstalledApplication> SampleApplications::longNames() {
    auto made = few();
    made[0].displayName = u"An Arcade With a Name That Has Nowhere to End"_s;
    made[1].displayName = u"Browserrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrr"_s;
    made[2].displayName = u"Écran d’accueil"_s;
    made[3].displayName = u"Préférences système détaillées"_s;
    return made;
}

} // namespace tolvar::gallery
