#include "Platform/Linux/BrowserSetup/KnownBrowsers.h"

#include <algorithm>

namespace tolvar {

using namespace Qt::StringLiterals;
using Family = KnownBrowser::Family;
using Experience = KnownBrowser::Experience;

const std::vector<KnownBrowser>& knownBrowsers() {
    static const std::vector<KnownBrowser> browsers = {
        {.id = u"chromium"_s,
         .name = u"Chromium"_s,
         .family = Family::chromium,
         .experience = Experience::tried,
         .programs = {u"chromium"_s, u"chromium-browser"_s},
         .processes = {u"chromium"_s, u"chromium-browser"_s},
         .configFolder = u"chromium"_s,
         .flatpaks = {u"org.chromium.Chromium"_s,
                      u"io.github.ungoogled_software.ungoogled_chromium"_s}},
        {.id = u"chrome"_s,
         .name = u"Google Chrome"_s,
         .family = Family::chromium,
         .experience = Experience::untried,
         .programs = {u"google-chrome"_s, u"google-chrome-stable"_s},
         .processes = {u"chrome"_s},
         .configFolder = u"google-chrome"_s,
         .flatpaks = {u"com.google.Chrome"_s}},
        {.id = u"brave"_s,
         .name = u"Brave"_s,
         .family = Family::chromium,
         .experience = Experience::untried,
         .programs = {u"brave-browser"_s, u"brave-browser-stable"_s, u"brave"_s},
         .processes = {u"brave"_s},
         .configFolder = u"BraveSoftware/Brave-Browser"_s,
         .flatpaks = {u"com.brave.Browser"_s}},
        {.id = u"edge"_s,
         .name = u"Microsoft Edge"_s,
         .family = Family::chromium,
         .experience = Experience::untried,
         .programs = {u"microsoft-edge"_s, u"microsoft-edge-stable"_s},
         .processes = {u"msedge"_s},
         .configFolder = u"microsoft-edge"_s,
         .flatpaks = {u"com.microsoft.Edge"_s}},
        {.id = u"vivaldi"_s,
         .name = u"Vivaldi"_s,
         .family = Family::chromium,
         .experience = Experience::untried,
         .programs = {u"vivaldi"_s, u"vivaldi-stable"_s},
         .processes = {u"vivaldi-bin"_s},
         .configFolder = u"vivaldi"_s,
         .flatpaks = {u"com.vivaldi.Vivaldi"_s}},
        {.id = u"opera"_s,
         .name = u"Opera"_s,
         .family = Family::chromium,
         .experience = Experience::untried,
         .programs = {u"opera"_s, u"opera-stable"_s},
         .processes = {u"opera"_s},
         .configFolder = u"opera"_s,
         .flatpaks = {u"com.opera.Opera"_s}},
        {.id = u"firefox"_s,
         .name = u"Firefox"_s,
         .family = Family::firefox,
         .experience = Experience::tried,
         .programs = {u"firefox"_s, u"firefox-esr"_s},
         .processes = {u"firefox"_s, u"firefox-esr"_s, u"firefox-bin"_s},
         .configFolder = {},
         .flatpaks = {u"org.mozilla.firefox"_s}},
    };
    return browsers;
}

const KnownBrowser* knownBrowser(const QString& id) {
    const auto& browsers = knownBrowsers();
    const auto found = std::find_if(browsers.begin(), browsers.end(),
                                    [&](const KnownBrowser& browser) { return browser.id == id; });
    return found != browsers.end() ? &*found : nullptr;
}

} // namespace tolvar
