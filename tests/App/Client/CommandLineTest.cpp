#include "App/Client/CommandLine.h"

#include "Support/Texts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;
using testing::HasSubstr;

/// The command that the arguments mean; a failure when they mean another or nothing.
template<typename Expected>
Expected parsed(const QStringList& arguments) {
    const auto result = parseCommandLine(arguments);
    if (const auto* error = std::get_if<UsageError>(&result)) {
        ADD_FAILURE() << error->message.toStdString();
        return {};
    }
    const auto* command = std::get_if<Expected>(&std::get<Command::Any>(result));
    EXPECT_NE(command, nullptr) << "another command was understood";
    return command != nullptr ? *command : Expected();
}

/// What is wrong with the arguments; a failure when nothing is.
std::string complaint(const QStringList& arguments) {
    const auto result = parseCommandLine(arguments);
    const auto* error = std::get_if<UsageError>(&result);
    EXPECT_NE(error, nullptr) << "understood: " << arguments.join(u' ').toStdString();
    return error != nullptr ? error->message.toStdString() : std::string();
}

TEST(CommandLine, OpensTheProgramWhenNothingIsSaid) {
    parsed<Command::Open>({});
}

TEST(CommandLine, UnderstandsEveryPlainCommand) {
    parsed<Command::Pause>({u"pause"_s});
    parsed<Command::Resume>({u"resume"_s});
    parsed<Command::Stop>({u"stop"_s});
    parsed<Command::Quit>({u"quit"_s});
    parsed<Command::Version>({u"--version"_s});
    parsed<Command::Help>({u"--help"_s});
}

TEST(CommandLine, ShowsHelpWhereverItIsAskedFor) {
    parsed<Command::Help>({u"start"_s, u"--help"_s});
    parsed<Command::Help>({u"status"_s, u"--bogus"_s, u"-h"_s});
}

TEST(CommandLine, StartsWithAGoalAlone) {
    const auto start = parsed<Command::Start>({u"start"_s, u"Write report"_s});
    EXPECT_EQ(start, (Command::Start{.goal = u"Write report"_s,
                                     .duration = std::nullopt,
                                     .categories = {},
                                     .apps = {},
                                     .sites = {},
                                     .preset = std::nullopt}));
    EXPECT_EQ(Command::Start::defaultDuration, 1500);
}

TEST(CommandLine, StartsWithEverythingThatCanBeChosen) {
    const auto start = parsed<Command::Start>(
        {u"start"_s, u"--app"_s, u"XTerm"_s, u"Read"_s, u"--for"_s, u"1h30m"_s, u"--category"_s,
         u"News"_s, u"--category=Gaming"_s, u"--site"_s, u"example.com"_s, u"--app"_s, u"GIMP"_s});
    EXPECT_EQ(start.goal, u"Read"_s);
    EXPECT_EQ(start.duration, 5400);
    EXPECT_EQ(start.categories, (QStringList{u"News"_s, u"Gaming"_s}));
    EXPECT_EQ(start.apps, (QStringList{u"XTerm"_s, u"GIMP"_s}));
    EXPECT_EQ(start.sites, QStringList{u"example.com"_s});
}

TEST(CommandLine, TrimsTheGoal) {
    EXPECT_EQ(parsed<Command::Start>({u"start"_s, u"  Read \n"_s}).goal, u"Read"_s);
}

TEST(CommandLine, TakesAGoalThatLooksLikeAnOptionBehindTwoDashes) {
    EXPECT_EQ(parsed<Command::Start>({u"start"_s, u"--"_s, u"--help"_s}).goal, u"--help"_s);
    EXPECT_EQ(parsed<Command::Start>({u"start"_s, u"--"_s, u"-5 pounds"_s}).goal, u"-5 pounds"_s);
}

TEST(CommandLine, RefusesAGoalThatIsMissingOrBlank) {
    EXPECT_THAT(complaint({u"start"_s}), HasSubstr("start needs a goal"));
    EXPECT_THAT(complaint({u"start"_s, u" \t"_s}), HasSubstr("start needs a goal"));
    EXPECT_THAT(complaint({u"start"_s, u"--for"_s, u"25m"_s}), HasSubstr("start needs a goal"));
}

TEST(CommandLine, ShowsHowToQuoteAGoalOfSeveralWords) {
    EXPECT_THAT(complaint({u"start"_s, u"Write"_s, u"report"_s}),
                HasSubstr("tolvar start \"Write report\""));
}

TEST(CommandLine, RefusesALengthThatIsNone) {
    for (const auto& text : {u"0"_s, u"-5m"_s, u"soon"_s, u""_s, u"25m30"_s})
        EXPECT_THAT(complaint({u"start"_s, u"Read"_s, u"--for"_s, text}),
                    HasSubstr("“" + text.toStdString() + "” is not a length of time"));
}

TEST(CommandLine, RefusesAnOptionThatIsGivenTwiceButMakesSenseOnce) {
    EXPECT_EQ(complaint({u"start"_s, u"Read"_s, u"--for"_s, u"5m"_s, u"--for"_s, u"6m"_s}),
              "--for is given twice");
    EXPECT_EQ(complaint({u"start"_s, u"Read"_s, u"--preset=A"_s, u"--preset=B"_s}),
              "--preset is given twice");
}

TEST(CommandLine, StartsFromAPresetWithItsOwnLengthOrAnother) {
    const auto own = parsed<Command::Start>({u"start"_s, u"Read"_s, u"--preset"_s, u"Deep work"_s});
    EXPECT_EQ(own.preset, u"Deep work"_s);
    EXPECT_EQ(own.duration, std::nullopt);
    const auto other = parsed<Command::Start>(
        {u"start"_s, u"Read"_s, u"--preset"_s, u"Deep work"_s, u"--for"_s, u"5m"_s});
    EXPECT_EQ(other.duration, 300);
}

TEST(CommandLine, RefusesToAddToWhatAPresetBlocks) {
    for (const auto& option : {u"--category"_s, u"--app"_s, u"--site"_s})
        EXPECT_EQ(complaint({u"start"_s, u"Read"_s, u"--preset"_s, u"A"_s, option, u"x"_s}),
                  "--preset brings its own choice of what to block");
}

TEST(CommandLine, RefusesAnApplicationWithoutAName) {
    EXPECT_THAT(complaint({u"start"_s, u"Read"_s, u"--app"_s, u""_s}), HasSubstr("--app"));
}

TEST(CommandLine, ExtendsByFiveMinutesUnlessTold) {
    EXPECT_EQ(parsed<Command::Extend>({u"extend"_s}).by, 300);
    EXPECT_EQ(parsed<Command::Extend>({u"extend"_s, u"--by"_s, u"10m"_s}).by, 600);
    EXPECT_THAT(complaint({u"extend"_s, u"--by"_s, u"0"_s}), HasSubstr("not a length of time"));
}

TEST(CommandLine, ShowsTheStatusInEveryFormat) {
    using Format = Command::Status::Format;
    EXPECT_EQ(parsed<Command::Status>({u"status"_s}).format, Format::text);
    EXPECT_EQ(parsed<Command::Status>({u"status"_s, u"--json"_s}).format, Format::json);
    const std::pair<QString, Format> formats[] = {{u"text"_s, Format::text},
                                                  {u"json"_s, Format::json},
                                                  {u"waybar"_s, Format::waybar},
                                                  {u"polybar"_s, Format::polybar}};
    for (const auto& [name, format] : formats)
        EXPECT_EQ(parsed<Command::Status>({u"status"_s, u"--format"_s, name}).format, format);
}

TEST(CommandLine, FollowsTheStatusOnlyWhenAsked) {
    EXPECT_FALSE(parsed<Command::Status>({u"status"_s}).follow);
    EXPECT_TRUE(parsed<Command::Status>({u"status"_s, u"--follow"_s}).follow);
}

TEST(CommandLine, RefusesAnUnknownFormatAndTwoThatContradictEachOther) {
    EXPECT_EQ(complaint({u"status"_s, u"--format"_s, u"xml"_s}),
              "“xml” is no format; try text, json, waybar or polybar");
    EXPECT_EQ(complaint({u"status"_s, u"--json"_s, u"--format"_s, u"waybar"_s}),
              "--json and --format waybar contradict each other");
    EXPECT_EQ(parsed<Command::Status>({u"status"_s, u"--json"_s, u"--format"_s, u"json"_s}).format,
              Command::Status::Format::json);
}

TEST(CommandLine, ListsEverythingForPeopleAndForPrograms) {
    using What = Command::List::What;
    const std::pair<QString, What> lists[] = {{u"history"_s, What::history},
                                              {u"presets"_s, What::presets},
                                              {u"categories"_s, What::categories},
                                              {u"apps"_s, What::apps},
                                              {u"browsers"_s, What::browsers}};
    for (const auto& [name, what] : lists) {
        const auto table = parsed<Command::List>({name});
        EXPECT_EQ(table.what, what);
        EXPECT_EQ(table.format, Command::List::Format::text);
        EXPECT_EQ(parsed<Command::List>({name, u"--json"_s}).format, Command::List::Format::json);
    }
}

TEST(CommandLine, SetsUpFreesAndTellsOfBrowsers) {
    using What = Command::Browsers::What;
    const std::pair<QString, What> deeds[] = {
        {u"setup"_s, What::setUp}, {u"remove"_s, What::remove}, {u"status"_s, What::status}};
    for (const auto& [word, what] : deeds) {
        const auto all = parsed<Command::Browsers>({u"browsers"_s, word});
        EXPECT_EQ(all.what, what);
        EXPECT_EQ(all.name, std::nullopt);
        EXPECT_EQ(all.format, Command::Browsers::Format::text);
    }
    EXPECT_EQ(parsed<Command::Browsers>({u"browsers"_s, u"setup"_s, u"chrome"_s}).name,
              u"chrome"_s);
    EXPECT_EQ(parsed<Command::Browsers>({u"browsers"_s, u"remove"_s, u""_s}).name, u""_s);
    EXPECT_EQ(parsed<Command::Browsers>({u"browsers"_s, u"status"_s, u"--json"_s}).format,
              Command::Browsers::Format::json);
}

TEST(CommandLine, RefusesWhatItsCommandsOnBrowsersHaveNoUseFor) {
    EXPECT_EQ(complaint({u"browsers"_s, u"bogus"_s}),
              "browsers takes no “bogus”; try setup, remove or status");
    EXPECT_EQ(complaint({u"browsers"_s, u"status"_s, u"chrome"_s}),
              "browsers status takes no “chrome”");
    EXPECT_EQ(complaint({u"browsers"_s, u"setup"_s, u"chrome"_s, u"opera"_s}),
              "browsers setup takes no “opera”");
    EXPECT_EQ(complaint({u"browsers"_s, u"setup"_s, u"--json"_s}),
              "browsers setup takes no --json");
    EXPECT_EQ(complaint({u"browsers"_s, u"setup"_s, u"--all"_s}), "unknown option 'all'");
}

TEST(CommandLine, LimitsTheHistoryAlone) {
    EXPECT_EQ(parsed<Command::List>({u"history"_s}).limit, std::nullopt);
    EXPECT_EQ(parsed<Command::List>({u"history"_s, u"--limit"_s, u"10"_s}).limit, 10u);
    for (const auto& text : {u"0"_s, u"-1"_s, u"many"_s, u"99999999999"_s})
        EXPECT_THAT(complaint({u"history"_s, u"--limit"_s, text}),
                    HasSubstr("is not a number of sessions"));
    EXPECT_THAT(complaint({u"presets"_s, u"--limit"_s, u"10"_s}), HasSubstr("limit"));
}

TEST(CommandLine, NamesWhatItDoesNotKnow) {
    EXPECT_EQ(complaint({u"bogus"_s}), "there is no command “bogus”");
    EXPECT_EQ(complaint({u"--bogus"_s}), "unknown option --bogus");
    EXPECT_EQ(complaint({u"start"_s, u"Read"_s, u"--colour"_s, u"red"_s}),
              "unknown option 'colour'");
    EXPECT_EQ(complaint({u"pause"_s, u"now"_s}), "pause takes no “now”");
    EXPECT_EQ(complaint({u"pause"_s, u"--json"_s}), "unknown option 'json'");
    EXPECT_EQ(complaint({u""_s}), "there is no command “”");
}

TEST(CommandLine, NamesAnOptionThatLacksItsValueOrHasOneTooMany) {
    EXPECT_THAT(complaint({u"start"_s, u"Read"_s, u"--for"_s}), HasSubstr("--for"));
    EXPECT_THAT(complaint({u"status"_s, u"--json=yes"_s}), HasSubstr("--json"));
}

TEST(CommandLine, DescribesEveryCommandInItsHelp) {
    const std::string help = helpText().toStdString();
    for (const auto* word :
         {"start",     "pause",      "resume",   "extend",     "stop",  "status",     "history",
          "presets",   "categories", "apps",     "browsers",   "setup", "remove",     "quit",
          "--version", "--help",     "--for",    "--category", "--app", "--site",     "--preset",
          "--json",    "--follow",   "--format", "--limit",    "--by",  "Exit status"})
        EXPECT_THAT(help, HasSubstr(word));
}

TEST(CommandLine, KeepsItsHelpWithinATerminal) {
    for (const QString& line : helpText().split(u'\n'))
        EXPECT_LE(line.size(), 100) << line.toStdString();
}

} // namespace
} // namespace tolvar
