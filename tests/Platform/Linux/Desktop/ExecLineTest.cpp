#include "Platform/Linux/Desktop/ExecLine.h"

#include "Support/Texts.h"

#include <gtest/gtest.h>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;

QString programOf(const QString& exec) {
    return startedProgram(execArguments(exec));
}

TEST(ExecArguments, AreSeparatedBySpacesWithoutFieldCodes) {
    EXPECT_EQ(execArguments(u"  viewer  --new %U %f"_s), (QStringList{u"viewer"_s, u"--new"_s}));
    EXPECT_EQ(execArguments(u"printf 100%% --file=%f"_s),
              (QStringList{u"printf"_s, u"100%"_s, u"--file="_s}));
}

TEST(ExecArguments, KeepWhatIsQuotedTogether) {
    EXPECT_EQ(execArguments(uR"("/opt/My App/run" "say \"\$5 \`now\`\" \\" "")"_s),
              (QStringList{u"/opt/My App/run"_s, u"say \"$5 `now`\" \\"_s, u""_s}));
    EXPECT_EQ(execArguments(u"'/opt/it is/run' a\\ b"_s),
              (QStringList{u"/opt/it is/run"_s, u"a b"_s}));
}

TEST(ExecArguments, OfABrokenLineAreWhatCanBeRead) {
    EXPECT_EQ(execArguments(u"run \"never closed"_s), (QStringList{u"run"_s, u"never closed"_s}));
    EXPECT_EQ(execArguments(u"run \\"_s), (QStringList{u"run"_s, u"\\"_s}));
    EXPECT_EQ(execArguments(u"run %"_s), (QStringList{u"run"_s, u"%"_s}));
    EXPECT_EQ(execArguments(u"   "_s), QStringList());
}

TEST(StartedProgram, IsTheBaseNameOfTheFirstArgument) {
    EXPECT_EQ(programOf(u"/usr/bin/gimp-2.10 %U"_s), u"gimp-2.10"_s);
    EXPECT_EQ(programOf(u"\"/opt/Long Name/the app\" --x"_s), u"the app"_s);
    EXPECT_EQ(programOf(QString()), QString());
}

TEST(StartedProgram, StandsBehindEnvironmentSettings) {
    EXPECT_EQ(programOf(u"env GDK_BACKEND=x11 LANG=C /usr/bin/meld %F"_s), u"meld"_s);
    EXPECT_EQ(programOf(u"/usr/bin/env -u WAYLAND_DISPLAY -i A=b meld"_s), u"meld"_s);
    EXPECT_EQ(programOf(u"env BAMF_DESKTOP_FILE_HINT=/var/lib/snapd/desktop/applications/a.desktop "
                        "/snap/bin/firefox %u"_s),
              u"firefox"_s);
    EXPECT_EQ(programOf(u"env A=b"_s), QString());
    EXPECT_EQ(programOf(u"env -u"_s), QString());
}

TEST(StartedProgram, OfAFlatpakIsItsCommandOrElseItsApplicationId) {
    EXPECT_EQ(programOf(u"/usr/bin/flatpak run --branch=stable --command=gimp-2.10 "
                        "--file-forwarding org.gimp.GIMP @@u %U @@"_s),
              u"gimp-2.10"_s);
    EXPECT_EQ(programOf(u"flatpak run --branch=stable org.gimp.GIMP"_s), u"org.gimp.GIMP"_s);
    EXPECT_EQ(programOf(u"flatpak list"_s), u"flatpak"_s);
}

TEST(StartedProgram, OfASnapIsTheApplicationWithinIt) {
    EXPECT_EQ(programOf(u"snap run --shell libreoffice.writer"_s), u"writer"_s);
    EXPECT_EQ(programOf(u"/usr/bin/snap run firefox %u"_s), u"firefox"_s);
}

TEST(StartedProgram, StandsInAPlainCommandOfAShell) {
    EXPECT_EQ(programOf(u"sh -c \"exec /opt/game/start --fast\""_s), u"start"_s);
    EXPECT_EQ(programOf(u"sh -c 'A=b nohup env C=d start'"_s), u"start"_s);
    EXPECT_EQ(programOf(u"sh -c \"cd /opt/game && ./start\""_s), u"sh"_s);
    EXPECT_EQ(programOf(u"bash"_s), u"bash"_s);
}

TEST(QuotedForExec, ReadsBackAsTheOneArgumentItWas) {
    for (const auto& path : {u"/usr/bin/tolvar"_s, u"/home/a b/$HOME/`x`/\"q\"/back\\slash"_s,
                             u"/opt/100%/%U/it's/тolvar"_s}) {
        EXPECT_EQ(execArguments(quotedForExec(path)), QStringList{path});
    }
}

} // namespace
} // namespace tolvar
