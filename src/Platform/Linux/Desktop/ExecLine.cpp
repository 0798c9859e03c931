#include "Platform/Linux/Desktop/ExecLine.h"

#include <algorithm>
#include <array>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

/// Programs that only start the program named by their first argument that is no option.
constexpr std::array plainWrappers = {
    u"nohup",       u"setsid",   u"pkexec",           u"prime-run", u"optirun",    u"primusrun",
    u"gamemoderun", u"mangohud", u"dbus-run-session", u"exec",      u"dbus-launch"};
constexpr std::array shells = {u"sh", u"bash", u"dash"};
/// What makes a shell's command more than a program and its arguments.
constexpr QStringView shellSyntax = u";&|()<>";

template<std::size_t count>
bool isOneOf(const QString& name, const std::array<const char16_t*, count>& names) {
    return std::any_of(names.begin(), names.end(),
                       [&](const char16_t* known) { return name == QStringView(known); });
}

QString baseName(const QString& path) {
    return path.section(u'/', -1);
}

bool isAssignment(const QString& argument) {
    const auto equals = argument.indexOf(u'=');
    return equals > 0 && !argument.left(equals).contains(u'/');
}

void dropOptions(QStringList& arguments) {
    while (!arguments.isEmpty() && arguments.first().startsWith(u'-'))
        arguments.removeFirst();
}

/// Removes env's own options and assignments; what is left is the command.
void dropEnvArguments(QStringList& arguments) {
    constexpr std::array withValue = {u"-u", u"--unset", u"-C", u"--chdir"};
    while (!arguments.isEmpty()) {
        if (isOneOf(arguments.first(), withValue))
            arguments.removeFirst();
        else if (!arguments.first().startsWith(u'-') && !isAssignment(arguments.first()))
            return;
        if (!arguments.isEmpty())
            arguments.removeFirst();
    }
}

/// `arguments` are those behind "flatpak run".
QString flatpakProgram(QStringList arguments) {
    for (const auto& argument : arguments)
        if (argument.startsWith(u"--command="))
            return baseName(argument.mid(argument.indexOf(u'=') + 1));
    dropOptions(arguments);
    return arguments.value(0);
}

/// `arguments` are those behind "snap run"; an application of a snap is "snap.application".
QString snapProgram(QStringList arguments) {
    dropOptions(arguments);
    return arguments.value(0).section(u'.', -1);
}

bool isPlainShellCommand(const QStringList& arguments) {
    return arguments.size() >= 2 && arguments[0] == u"-c" &&
           std::none_of(arguments[1].begin(), arguments[1].end(),
                        [](QChar c) { return shellSyntax.contains(c); });
}

/// Splits into words and removes quoting, one character at a time.
class WordReader {
public:
    QStringList read(const QString& line) {
        for (qsizetype i = 0; i < line.size(); ++i) {
            const QChar c = line[i];
            if (c == m_quote)
                m_quote = QChar();
            else if (c == u'\\' && m_quote != u'\'' && i + 1 < line.size())
                append(line[++i]);
            else if (c == u'%' && i + 1 < line.size())
                appendFieldCode(line[++i]);
            else if (m_quote.isNull() && (c == u'"' || c == u'\''))
                open(c);
            else if (m_quote.isNull() && c.isSpace())
                endWord();
            else
                append(c);
        }
        endWord();
        return m_words;
    }

private:
    void append(QChar c) {
        m_word += c;
        m_inWord = true;
    }
    void appendFieldCode(QChar code) {
        if (code == u'%')
            append(code);
    }
    void open(QChar quote) {
        m_quote = quote;
        m_inWord = true;
    }
    void endWord() {
        if (std::exchange(m_inWord, false))
            m_words.append(std::exchange(m_word, {}));
    }

    QStringList m_words;
    QString m_word;
    QChar m_quote;
    /// An empty pair of quotes is a word, too.
    bool m_inWord = false;
};

} // namespace

QStringList execArguments(const QString& exec) {
    return WordReader().read(exec);
}

QString startedProgram(QStringList arguments) {
    while (!arguments.isEmpty()) {
        if (isAssignment(arguments.first())) {
            arguments.removeFirst();
            continue;
        }
        QString program = baseName(arguments.takeFirst());
        if (program == u"env")
            dropEnvArguments(arguments);
        else if (program == u"flatpak" && arguments.value(0) == u"run")
            return flatpakProgram(arguments.mid(1));
        else if (program == u"snap" && arguments.value(0) == u"run")
            return snapProgram(arguments.mid(1));
        else if (isOneOf(program, shells) && isPlainShellCommand(arguments))
            arguments = execArguments(arguments[1]);
        else if (isOneOf(program, plainWrappers))
            dropOptions(arguments);
        else
            return program;
    }
    return {};
}

QString quotedForExec(const QString& program) {
    QString quoted = u"\""_s;
    for (const QChar c : program) {
        if (QStringView(u"\"`$\\").contains(c))
            quoted += u'\\';
        quoted += c == u'%' ? u"%%"_s : QString(c);
    }
    return quoted + u'"';
}

} // namespace tolvar
