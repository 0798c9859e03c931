#include "App/Client/CommandLine.h"

#include "App/Client/DurationArgument.h"

#include <QCommandLineParser>

#include <algorithm>
#include <array>
#include <functional>
#include <utility>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;
using Parsed = std::variant<Command::Any, UsageError>;

QString quoted(const QString& text) {
    return u"“"_s + text + u"”"_s;
}

QString startingLowerCase(QString sentence) {
    sentence.replace(0, 1, sentence.left(1).toLower());
    return sentence.endsWith(u'.') ? sentence.chopped(1) : sentence;
}

/// The options and words behind a command's name, against those it knows.
class Arguments {
public:
    Arguments(const QString& command, const QStringList& arguments,
              const QList<QCommandLineOption>& options) {
        m_parser.addOptions(options);
        m_parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
        if (!m_parser.parse(QStringList(command) + arguments))
            m_error = UsageError{startingLowerCase(m_parser.errorText())};
    }

    const std::optional<UsageError>& error() const { return m_error; }
    QStringList words() const { return m_parser.positionalArguments(); }
    bool has(const QString& option) const { return m_parser.isSet(option); }
    QStringList all(const QString& option) const { return m_parser.values(option); }

    /// The value of an option that makes sense once; repeating it is an error.
    std::optional<QString> single(const QString& option) {
        const QStringList values = all(option);
        if (values.size() > 1)
            fail(u"--"_s + option + u" is given twice"_s);
        return values.isEmpty() ? std::nullopt : std::optional(values.first());
    }

    std::optional<Seconds> duration(const QString& option) {
        const auto text = single(option);
        const auto seconds = text ? parseDuration(*text) : std::nullopt;
        if (text && !seconds)
            fail(quoted(*text) + u" is not a length of time; try 25m, 1h30m, 90s or 1500"_s);
        return seconds;
    }

    /// Words that the command has no use for are an error.
    void takeNoWords(const QString& command) {
        if (!words().isEmpty())
            fail(u"%1 takes no %2"_s.arg(command, quoted(words().first())));
    }

    /// The first failure is the one to be told.
    void fail(const QString& message) {
        if (!m_error)
            m_error = UsageError{message};
    }

    Parsed resultOr(const Command::Any& command) const {
        return m_error ? Parsed(*m_error) : Parsed(command);
    }

private:
    QCommandLineParser m_parser;
    std::optional<UsageError> m_error;
};

QCommandLineOption flag(const QString& name) {
    return QCommandLineOption(name);
}

QCommandLineOption valued(const QString& name) {
    return {name, {}, name};
}

template<typename Plain>
Parsed parsePlain(const QString& name, const QStringList& rest) {
    Arguments arguments(name, rest, {});
    arguments.takeNoWords(name);
    return arguments.resultOr(Plain{});
}

void checkGoal(Arguments& arguments) {
    const QStringList words = arguments.words();
    if (words.isEmpty() || words.first().trimmed().isEmpty())
        arguments.fail(u"start needs a goal, for example: tolvar start \"Write report\""_s);
    else if (words.size() > 1)
        arguments.fail(
            u"start takes one goal; put it in quotes: tolvar start \"%1\""_s.arg(words.join(u' ')));
}

Parsed parseStart(const QString& name, const QStringList& rest) {
    Arguments arguments(name, rest,
                        {valued(u"for"_s), valued(u"category"_s), valued(u"app"_s),
                         valued(u"site"_s), valued(u"preset"_s)});
    checkGoal(arguments);
    const Command::Start start = {
        .goal = arguments.words().value(0).trimmed(),
        .duration = arguments.duration(u"for"_s),
        .categories = arguments.all(u"category"_s),
        .apps = arguments.all(u"app"_s),
        .sites = arguments.all(u"site"_s),
        .preset = arguments.single(u"preset"_s),
    };
    if (start.preset && !(start.categories + start.apps + start.sites).isEmpty())
        arguments.fail(u"--preset brings its own choice of what to block"_s);
    if (std::any_of(start.apps.begin(), start.apps.end(),
                    [](const QString& app) { return app.trimmed().isEmpty(); }))
        arguments.fail(u"--app needs the name of an application"_s);
    return arguments.resultOr(start);
}

Parsed parseExtend(const QString& name, const QStringList& rest) {
    Arguments arguments(name, rest, {valued(u"by"_s)});
    arguments.takeNoWords(name);
    Command::Extend extend;
    extend.by = arguments.duration(u"by"_s).value_or(extend.by);
    return arguments.resultOr(extend);
}

Command::Status::Format statusFormat(Arguments& arguments) {
    using Format = Command::Status::Format;
    static const std::array<std::pair<QString, Format>, 4> formats = {{
        {u"text"_s, Format::text},
        {u"json"_s, Format::json},
        {u"waybar"_s, Format::waybar},
        {u"polybar"_s, Format::polybar},
    }};
    const QString fallback = arguments.has(u"json"_s) ? u"json"_s : u"text"_s;
    const QString wanted = arguments.single(u"format"_s).value_or(fallback);
    if (arguments.has(u"json"_s) && wanted != u"json"_s)
        arguments.fail(u"--json and --format %1 contradict each other"_s.arg(wanted));
    for (const auto& [name, format] : formats)
        if (name == wanted)
            return format;
    arguments.fail(quoted(wanted) + u" is no format; try text, json, waybar or polybar"_s);
    return Format::text;
}

Parsed parseStatus(const QString& name, const QStringList& rest) {
    Arguments arguments(name, rest, {flag(u"json"_s), flag(u"follow"_s), valued(u"format"_s)});
    arguments.takeNoWords(name);
    const Command::Status status = {
        .format = statusFormat(arguments),
        .follow = arguments.has(u"follow"_s),
    };
    return arguments.resultOr(status);
}

std::optional<quint32> limit(Arguments& arguments) {
    const auto text = arguments.single(u"limit"_s);
    if (!text)
        return std::nullopt;
    bool isNumber = false;
    const quint32 number = text->toUInt(&isNumber);
    if (!isNumber || number == 0)
        arguments.fail(quoted(*text) + u" is not a number of sessions"_s);
    return number;
}

template<Command::List::What what>
Parsed parseList(const QString& name, const QStringList& rest) {
    QList<QCommandLineOption> options = {flag(u"json"_s)};
    if (what == Command::List::What::history)
        options.append(valued(u"limit"_s));
    Arguments arguments(name, rest, options);
    arguments.takeNoWords(name);
    Command::List list;
    list.what = what;
    if (arguments.has(u"json"_s))
        list.format = Command::List::Format::json;
    if (what == Command::List::What::history && !arguments.error())
        list.limit = limit(arguments);
    return arguments.resultOr(list);
}

Command::Browsers::What browserDeed(Arguments& arguments, const QString& word) {
    using What = Command::Browsers::What;
    if (word == u"setup")
        return What::setUp;
    if (word == u"remove")
        return What::remove;
    if (word != u"status")
        arguments.fail(u"browsers takes no %1; try setup, remove or status"_s.arg(quoted(word)));
    return What::status;
}

/// Without a further word they are listed like presets and the like.
Parsed parseBrowsers(const QString& name, const QStringList& rest) {
    Arguments arguments(name, rest, {flag(u"json"_s)});
    const QStringList words = arguments.words();
    if (words.isEmpty())
        return parseList<Command::List::What::browsers>(name, rest);
    Command::Browsers browsers;
    browsers.what = browserDeed(arguments, words.first());
    const bool isStatus = browsers.what == Command::Browsers::What::status;
    if (words.size() > (isStatus ? 1 : 2))
        arguments.fail(u"browsers %1 takes no %2"_s.arg(words.first(), quoted(words.last())));
    if (arguments.has(u"json"_s) && !isStatus)
        arguments.fail(u"browsers %1 takes no --json"_s.arg(words.first()));
    if (words.size() > 1)
        browsers.name = words.last();
    if (arguments.has(u"json"_s))
        browsers.format = Command::Browsers::Format::json;
    return arguments.resultOr(browsers);
}

using Parser = Parsed (*)(const QString&, const QStringList&);

Parser parserOf(const QString& name) {
    using What = Command::List::What;
    static const std::array<std::pair<QString, Parser>, 14> parsers = {{
        {u"start"_s, parseStart},
        {u"pause"_s, parsePlain<Command::Pause>},
        {u"resume"_s, parsePlain<Command::Resume>},
        {u"extend"_s, parseExtend},
        {u"stop"_s, parsePlain<Command::Stop>},
        {u"status"_s, parseStatus},
        {u"history"_s, parseList<What::history>},
        {u"presets"_s, parseList<What::presets>},
        {u"categories"_s, parseList<What::categories>},
        {u"apps"_s, parseList<What::apps>},
        {u"browsers"_s, parseBrowsers},
        {u"quit"_s, parsePlain<Command::Quit>},
        {u"--version"_s, parsePlain<Command::Version>},
        {u"--help"_s, parsePlain<Command::Help>},
    }};
    for (const auto& [known, parser] : parsers)
        if (known == name)
            return parser;
    return nullptr;
}

/// Whether help is asked for; what stands behind "--" is a goal.
bool asksForHelp(const QStringList& arguments) {
    const QStringList options = arguments.mid(0, arguments.indexOf(u"--"_s));
    return options.contains(u"--help"_s) || options.contains(u"-h"_s);
}

} // namespace

Parsed parseCommandLine(const QStringList& arguments) {
    if (arguments.isEmpty())
        return Command::Open{};
    if (asksForHelp(arguments))
        return Command::Help{};
    const QString& name = arguments.first();
    if (const Parser parse = parserOf(name))
        return parse(name, arguments.mid(1));
    return UsageError{name.startsWith(u'-') ? u"unknown option %1"_s.arg(name)
                                            : u"there is no command %1"_s.arg(quoted(name))};
}

QString helpText() {
    return uR"(Tolvar, a focus timer

  tolvar                         start Tolvar, or open the window of the running one
  tolvar start GOAL [--for 25m] [--category ID]... [--app NAME]... [--site HOST]...
                                 begin a session of 25 minutes, or as long as --for says
  tolvar start GOAL --preset NAME [--for 25m]
                                 begin one from a preset; --for overrides its length
  tolvar pause | resume          at most twice in a session, two minutes each
  tolvar extend [--by 5m]        make the session longer, by five minutes or --by
  tolvar stop                    end the session early
  tolvar status [--json] [--follow] [--format text|json|waybar|polybar]
                                 tell how the session stands; with --follow, at every change
  tolvar history [--json] [--limit N]
                                 ended sessions, newest first
  tolvar presets | categories | apps | browsers [--json]
                                 what can be chosen: presets, block categories, installed
                                 applications; and the running browsers that can be reached
  tolvar browsers setup [NAME]   let Tolvar see and redirect the tabs of the browsers on this
                                 computer, or of one; takes effect when the browser starts
  tolvar browsers remove [NAME]  take that away again without a trace
  tolvar browsers status [--json]
                                 the installed browsers: connected, set up, not set up, out of
                                 date, or why they cannot be reached
  tolvar quit                    end Tolvar; a running session goes on at its next start
  tolvar --version | --help

Lengths are 25m, 1h30m, 90s, or bare seconds. Categories and presets go by their name or id,
applications by the name people see. Only start and a bare tolvar start Tolvar when it does not
run; browsers setup, remove and status do without it. A goal that begins with a dash goes behind --.

status --json prints one object on a line. "status" is "ready", "focusing" or "paused"; unless it
is "ready", there are also "goal", "duration", "remaining" and "elapsed" (seconds), "pausesLeft",
"blockedApps", "blockedWebsites" and "clock"; "pauseRemaining" (seconds until a pause ends by
itself) is there only when paused.
browsers status --json prints an array of objects with "browser", "name", "state" ("connected",
"setUp", "notSetUp", "outOfDate" or "unreachable"), "connected" (a boolean) and, where there is
something to tell, "reason" (why it is unreachable) and "remainder" (what is left to do).
While Tolvar does not run, status --follow says so ("status":"off") and waits for it to come.

Exit status: 0 done; 1 it does not apply now, such as pausing without a session, a browser could
not be set up, or the output cannot be written; 2 the command line is wrong, or names an unknown
category, preset or browser; 3 Tolvar does not run or does not answer.
)"_s;
}

} // namespace tolvar
