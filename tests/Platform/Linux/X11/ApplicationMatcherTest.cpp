#include "Platform/Linux/X11/ApplicationMatcher.h"

#include "Support/Texts.h"

#include <gtest/gtest.h>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;

DesktopEntry entry(const QString& id, const QString& wmClass = {}, const QString& program = {}) {
    DesktopEntry entry;
    entry.id = id;
    entry.name = u"Name of "_s + id;
    entry.startupWmClass = wmClass;
    entry.program = program;
    return entry;
}

WindowFacts window(const QString& instanceName, const QString& className) {
    WindowFacts window;
    window.id = 1;
    window.wmClass = {instanceName, className};
    window.processIdentifier = 100;
    return window;
}

QString matched(const std::vector<DesktopEntry>& entries, const WindowFacts& window,
                const ProcessFacts& process = {}) {
    const ApplicationMatcher matcher(entries, [&](qint64) { return process; });
    const DesktopEntry* entry = matcher.match(window);
    return entry ? entry->id : QString();
}

TEST(ApplicationMatcher, BelievesTheIdThatTheWindowNamesBeforeItsClass) {
    auto named = window(u"mail"_s, u"Mail"_s);
    named.applicationId = u"org.example.Chat"_s;
    EXPECT_EQ(
        matched({entry(u"org.example.Chat"_s), entry(u"org.example.Mail"_s, u"Mail"_s)}, named),
        u"org.example.Chat");
}

TEST(ApplicationMatcher, GoesByTheClassWhenTheNamedIdIsUnknown) {
    auto named = window(u"mail"_s, u"Mail"_s);
    named.applicationId = u"org.example.Removed"_s;
    EXPECT_EQ(matched({entry(u"org.example.Mail"_s)}, named), u"org.example.Mail");
}

TEST(ApplicationMatcher, PrefersTheStartupClassToAnIdOfThatName) {
    EXPECT_EQ(matched({entry(u"code"_s), entry(u"vendor.editor"_s, u"Code"_s)},
                      window(u"code"_s, u"Code"_s)),
              u"vendor.editor");
}

TEST(ApplicationMatcher, TellsAPageShownAsAnApplicationFromItsBrowser) {
    EXPECT_EQ(matched({entry(u"browser"_s, u"Browser"_s), entry(u"browser-page"_s, u"crx_page"_s)},
                      window(u"crx_page"_s, u"Browser"_s)),
              u"browser-page");
}

TEST(ApplicationMatcher, TakesStartupClassesLetterByLetter) {
    EXPECT_EQ(matched({entry(u"a"_s, u"Chat"_s)}, window(u"chat"_s, u"CHAT"_s)), QString());
}

TEST(ApplicationMatcher, KnowsAnIdInAnyCase) {
    EXPECT_EQ(matched({entry(u"GIMP"_s)}, window(u"gimp"_s, u"Gimp"_s)), u"GIMP");
}

TEST(ApplicationMatcher, KnowsTheLastSegmentOfAnIdInAnyCase) {
    EXPECT_EQ(matched({entry(u"org.gnome.Nautilus"_s)}, window({}, u"nautilus"_s)),
              u"org.gnome.Nautilus");
}

TEST(ApplicationMatcher, PrefersTheWholeIdToALastSegment) {
    EXPECT_EQ(matched({entry(u"org.example.chat"_s), entry(u"chat"_s)}, window({}, u"Chat"_s)),
              u"chat");
}

TEST(ApplicationMatcher, KnowsAnXtermByItsClass) {
    const auto entries = std::vector{entry(u"debian-uxterm"_s, u"UXTerm"_s, u"uxterm"_s),
                                     entry(u"debian-xterm"_s, u"XTerm"_s, u"xterm"_s)};
    EXPECT_EQ(matched(entries, window(u"xterm"_s, u"XTerm"_s)), u"debian-xterm");
    EXPECT_EQ(matched(entries, window(u"xterm"_s, u"UXTerm"_s)), u"debian-uxterm");
}

TEST(ApplicationMatcher, GoesByTheEntryThatTheProcessWasStartedFrom) {
    EXPECT_EQ(matched({entry(u"kde4-chat"_s), entry(u"other"_s, {}, u"chat-bin"_s)},
                      window(u"x"_s, u"X"_s),
                      {u"chat-bin"_s, u"/usr/share/applications/kde4/chat.desktop"_s}),
              u"kde4-chat");
}

TEST(ApplicationMatcher, GoesByTheProgramLast) {
    EXPECT_EQ(matched({entry(u"org.example.Chat"_s, {}, u"chat-bin"_s)}, window(u"x"_s, u"X"_s),
                      {u"chat-bin"_s, {}}),
              u"org.example.Chat");
}

TEST(ApplicationMatcher, KnowsNothingByAProgramThatSeveralEntriesStart) {
    EXPECT_EQ(matched({entry(u"writer"_s, {}, u"office"_s), entry(u"calc"_s, {}, u"office"_s),
                       entry(u"draw"_s, {}, u"office"_s)},
                      window(u"x"_s, u"X"_s), {u"office"_s, {}}),
              QString());
}

TEST(ApplicationMatcher, KnowsNothingByAProgramOfAnEntryThatMenusLeaveOut) {
    auto hidden = entry(u"helper"_s, {}, u"helper"_s);
    hidden.noDisplay = true;
    EXPECT_EQ(matched({hidden}, window(u"x"_s, u"X"_s), {u"helper"_s, {}}), QString());
}

TEST(ApplicationMatcher, KnowsNothingByAProgramThatRunsOthers) {
    EXPECT_EQ(matched({entry(u"a-java-program"_s, {}, u"java"_s)}, window(u"x"_s, u"X"_s),
                      {u"java"_s, {}}),
              QString());
}

TEST(ApplicationMatcher, PrefersAnEntryThatMenusShow) {
    auto hidden = entry(u"a-handler"_s, u"Chat"_s);
    hidden.noDisplay = true;
    auto elsewhere = entry(u"b-elsewhere"_s, u"Chat"_s);
    elsewhere.appliesHere = false;
    EXPECT_EQ(
        matched({hidden, elsewhere, entry(u"c-chat"_s, u"Chat"_s)}, window(u"chat"_s, u"Chat"_s)),
        u"c-chat");
    EXPECT_EQ(matched({hidden}, window(u"chat"_s, u"Chat"_s)), u"a-handler");
}

TEST(ApplicationMatcher, AsksForNoProcessThatIsNotKnown) {
    auto foreign = window(u"x"_s, u"X"_s);
    foreign.processIdentifier = 0;
    EXPECT_EQ(matched({entry(u"chat"_s, {}, u"chat"_s)}, foreign, {u"chat"_s, {}}), QString());
}

TEST(ApplicationMatcher, KnowsNothingOfAWindowThatSaysNothing) {
    EXPECT_EQ(matched({entry(u"chat"_s), entry(u""_s)}, window({}, {})), QString());
}

} // namespace
} // namespace tolvar
