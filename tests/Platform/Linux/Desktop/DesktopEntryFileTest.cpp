#include "Platform/Linux/Desktop/DesktopEntryFile.h"

#include "Support/Texts.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;

DesktopEntryFile entry(const QByteArray& lines) {
    return DesktopEntryFile("[Desktop Entry]\n" + lines);
}

TEST(DesktopEntryFile, ReadsOnlyItsOwnGroup) {
    const DesktopEntryFile file("Name=Before\n"
                                "[Other]\nName=Other\n"
                                "[Desktop Entry]\nName=Mine\n"
                                "[Desktop Action new]\nName=New window\nIcon=new\n");
    EXPECT_EQ(file.string(u"Name"_s), u"Mine"_s);
    EXPECT_FALSE(file.contains(u"Icon"_s));
}

TEST(DesktopEntryFile, PassesOverCommentsBlankLinesAndWhatIsNoKey) {
    const auto file = entry("# Name=Comment\n\n=nothing\njust text\n  Name  =  Spaced out  \r\n");
    EXPECT_EQ(file.string(u"Name"_s), u"Spaced out"_s);
    EXPECT_FALSE(file.contains(u"# Name"_s));
    EXPECT_FALSE(file.contains(QString()));
}

TEST(DesktopEntryFile, ReadsThroughAByteOrderMarkAndBrokenUtf8) {
    const DesktopEntryFile file("\xEF\xBB\xBF[Desktop Entry]\nName=Bro\xFFken\nIcon=k\xC3\xA4se");
    EXPECT_EQ(file.string(u"Name"_s), u"Bro\uFFFDken"_s);
    EXPECT_EQ(file.string(u"Icon"_s), u"käse"_s);
}

TEST(DesktopEntryFile, ResolvesEscapesAndKeepsOtherBackslashes) {
    const auto file = entry(R"(Comment=\sa\nb\tc\rd\\n\w)"
                            "\nPath=C:\\Programs\\\n");
    EXPECT_EQ(file.string(u"Comment"_s), u" a\nb\tc\rd\\n\\w"_s);
    EXPECT_EQ(file.string(u"Path"_s), u"C:\\Programs\\"_s);
}

TEST(DesktopEntryFile, SplitsListsAtSemicolonsThatAreNotEscaped) {
    const auto file = entry("A=one;two\\;half;three\nB=one;\nC=\nD=a;;b;\n");
    EXPECT_EQ(file.strings(u"A"_s), (QStringList{u"one"_s, u"two;half"_s, u"three"_s}));
    EXPECT_EQ(file.strings(u"B"_s), QStringList{u"one"_s});
    EXPECT_EQ(file.strings(u"C"_s), QStringList());
    EXPECT_EQ(file.strings(u"D"_s), (QStringList{u"a"_s, u""_s, u"b"_s}));
    EXPECT_EQ(file.strings(u"absent"_s), QStringList());
}

TEST(DesktopEntryFile, FallsBackWhereABooleanIsNone) {
    const auto file = entry("A=true\nB=false\nC=1\nD=0\nE=yes\n");
    EXPECT_TRUE(file.boolean(u"A"_s, false));
    EXPECT_FALSE(file.boolean(u"B"_s, true));
    EXPECT_TRUE(file.boolean(u"C"_s, false));
    EXPECT_FALSE(file.boolean(u"D"_s, true));
    EXPECT_TRUE(file.boolean(u"E"_s, true));
    EXPECT_FALSE(file.boolean(u"E"_s, false));
    EXPECT_TRUE(file.boolean(u"absent"_s, true));
}

TEST(DesktopEntryFile, PrefersTheTextOfTheBestMatchingLocale) {
    const auto file = entry("Name=Calculator\nName[sr]=sr\nName[sr@latin]=sr@latin\n"
                            "Name[sr_RS]=sr_RS\nName[sr_RS.UTF-8@latin]=sr_RS@latin\n"
                            "Name[de]=Rechner\n");
    const auto name = [&](const QString& locale) {
        return file.localizedString(u"Name"_s, matchingLocales(locale));
    };
    EXPECT_EQ(name(u"sr_RS.UTF-8@latin"_s), u"sr_RS@latin"_s);
    EXPECT_EQ(name(u"sr_RS.UTF-8"_s), u"sr_RS"_s);
    EXPECT_EQ(name(u"sr_ME@latin"_s), u"sr@latin"_s);
    EXPECT_EQ(name(u"sr_ME@ijekavian"_s), u"sr"_s);
    EXPECT_EQ(name(u"de_AT.UTF-8"_s), u"Rechner"_s);
    EXPECT_EQ(name(u"fr_FR:de_AT"_s), u"Rechner"_s);
    EXPECT_EQ(name(u"fr_FR.UTF-8"_s), u"Calculator"_s);
    EXPECT_EQ(name(QString()), u"Calculator"_s);
}

TEST(DesktopEntryFile, KeepsACountryAheadOfAModifier) {
    EXPECT_EQ(matchingLocales(u"ca_ES.UTF-8@valencia"_s),
              (QStringList{u"ca_ES@valencia"_s, u"ca_ES"_s, u"ca@valencia"_s, u"ca"_s}));
    EXPECT_EQ(matchingLocales(u"de"_s), QStringList{u"de"_s});
}

TEST(DesktopEntryFile, EscapesTextThatReadsBackAsItWas) {
    for (const auto& text :
         {u" leading space"_s, u"line\nbreak\ttab\rreturn"_s, u"back\\slash \\n"_s, u"plain"_s}) {
        const QString line = u"Exec="_s + escapedDesktopString(text);
        EXPECT_EQ(entry(line.toUtf8()).string(u"Exec"_s), text);
    }
}

TEST(DesktopEntryFile, IsReadOnlyFromRegularFilesOfASaneSize) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a.desktop"_s);
    EXPECT_FALSE(DesktopEntryFile::read(path));
    EXPECT_FALSE(DesktopEntryFile::read(folder.path()));

    ASSERT_EQ(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    EXPECT_FALSE(DesktopEntryFile::read(path));

    QFile::remove(path);
    QFile file(path);
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write("[Desktop Entry]\nName=Here\n");
    file.flush();
    const auto read = DesktopEntryFile::read(path);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->string(u"Name"_s), u"Here"_s);

    ASSERT_TRUE(file.resize(2 * 1024 * 1024));
    EXPECT_FALSE(DesktopEntryFile::read(path));
}

} // namespace
} // namespace tolvar
