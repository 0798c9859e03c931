#pragma once

#include "Platform/Interfaces/InstalledApplications.h"

namespace tolvar::gallery {

/// What is installed: the same on every machine, with icons of this repository.
class SampleApplications final : public InstalledApplications {
public:
    enum class Icons { all, none };

    static std::vector<InstalledApplication> few(Icons icons = Icons::all) {
        using namespace Qt::StringLiterals;
        const std::pair<QString, QString> names[] = {
            {u"Arcade"_s, u"game"_s},   {u"Browser"_s, u"browser"_s},  {u"Chat"_s, u"chat"_s},
            {u"Mail"_s, u"mail"_s},     {u"Music"_s, u"music"_s},      {u"Notes"_s, u"notes"_s},
            {u"Photos"_s, u"photos"_s}, {u"Terminal"_s, u"terminal"_s}};
        std::vector<InstalledApplication> made;
        for (const auto& [name, icon] : names)
            made.push_back({name, name,
                            icons == Icons::all ? u"%1/%2.svg"_s.arg(QStringLiteral(ICONS), icon)
                                                : QString()});
        return made;
    }
    static std::vector<InstalledApplication> many() {
        using namespace Qt::StringLiterals;
        const auto some = few();
        std::vector<InstalledApplication> made;
        for (std::size_t i = 0; i < 500; ++i) {
            made.push_back(some[i % some.size()]);
            made.back().displayName += u" %1"_s.arg(i + 1, 3, 10, QChar(u'0'));
        }
        return made;
    }
    static std::vector<InstalledApplication> longNames() {
        using namespace Qt::StringLiterals;
        auto made = few();
        made[0].displayName = u"An Arcade With a Name That Has Nowhere to End"_s;
        made[1].displayName = u"Browserrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrr"_s;
        made[2].displayName = u"Écran d’accueil"_s;
        made[3].displayName = u"Préférences système détaillées"_s;
        return made;
    }

    explicit SampleApplications(std::vector<InstalledApplication> applications)
        : m_applications(std::move(applications)) {}
    std::vector<InstalledApplication> list() const override { return m_applications; }

private:
    const std::vector<InstalledApplication> m_applications;
};

} // namespace tolvar::gallery
