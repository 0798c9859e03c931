#include "Models/BlockCategory.h"

#include <algorithm>
#include <initializer_list>
#include <set>

namespace tolvar {

namespace {

std::vector<QString> texts(std::initializer_list<const char16_t*> list) {
    std::vector<QString> result;
    for (const char16_t* text : list)
        result.push_back(QString::fromUtf16(text));
    return result;
}

BlockCategory shipped(const char16_t* name, std::initializer_list<const char16_t*> apps,
                      std::initializer_list<const char16_t*> websites) {
    const auto id = QString::fromUtf16(name);
    return {.id = id, .name = id, .apps = texts(apps), .websites = texts(websites)};
}

std::set<QString> asSet(const std::vector<QString>& items) {
    return {items.begin(), items.end()};
}

} // namespace

const std::vector<BlockCategory>& BlockCategory::defaults() {
    static const std::vector<BlockCategory> categories = {
        shipped(u"Social Media",
                {u"Twitter", u"Facebook", u"Instagram", u"TikTok", u"LinkedIn", u"Reddit"},
                {u"twitter.com", u"x.com", u"facebook.com", u"instagram.com", u"tiktok.com",
                 u"linkedin.com", u"reddit.com"}),
        shipped(u"Shopping", {u"Amazon", u"eBay", u"Etsy"},
                {u"amazon.com", u"ebay.com", u"etsy.com", u"aliexpress.com"}),
        shipped(
            u"News", {u"News", u"Reeder", u"NetNewsWire"},
            {u"cnn.com", u"bbc.com", u"nytimes.com", u"theguardian.com", u"washingtonpost.com"}),
        shipped(u"Entertainment", {u"YouTube", u"Netflix", u"Spotify", u"Apple TV"},
                {u"youtube.com", u"netflix.com", u"hulu.com", u"twitch.tv", u"spotify.com"}),
        shipped(u"Gaming", {u"Steam", u"Discord", u"Epic Games"},
                {u"steampowered.com", u"epicgames.com", u"twitch.tv"}),
        shipped(u"Messaging", {u"Slack", u"Discord", u"WhatsApp", u"Telegram", u"Messages"},
                {u"slack.com", u"discord.com", u"web.whatsapp.com", u"web.telegram.org"}),
    };
    return categories;
}

const BlockCategory* BlockCategory::builtIn(const QString& id) {
    const auto found = std::find_if(defaults().begin(), defaults().end(),
                                    [&](const auto& category) { return category.id == id; });
    return found != defaults().end() ? &*found : nullptr;
}

BlockCategory BlockCategory::fromBareName(const QString& name) {
    if (const auto* category = builtIn(name))
        return *category;
    return {.id = name, .name = name, .apps = {}, .websites = {}};
}

bool BlockCategory::differsFromDefaults() const {
    const auto* original = builtIn(id);
    return original != nullptr &&
           (asSet(apps) != asSet(original->apps) || asSet(websites) != asSet(original->websites));
}

} // namespace tolvar
