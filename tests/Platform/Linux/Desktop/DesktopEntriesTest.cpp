#include "Platform/Linux/Desktop/DesktopEntries.h"

#include "Support/ChildProcess.h"
#include "Support/Texts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <map>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;

/// Two data folders, "near" before "far", on a desktop named Shell in an Austrian locale.
class DesktopEntriesTest : public testing::Test {
protected:
    void write(const QString& path, const QByteArray& lines) {
        const QString full = m_root.filePath(path);
        QDir().mkpath(QFileInfo(full).path());
        QFile file(full);
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write("[Desktop Entry]\n" + lines);
    }
    /// One application in the near folder, under the id "app".
    std::optional<DesktopEntry> single(const QByteArray& lines) {
        write(u"near/applications/app.desktop"_s, lines);
        const auto loaded = entries().load();
        return loaded.empty() ? std::nullopt : std::optional(loaded.front());
    }
    DesktopEntries entries() const {
        return DesktopEntries({m_root.filePath(u"near"_s), m_root.filePath(u"far"_s)},
                              {u"Custom"_s, u"Shell"_s}, u"de_AT.UTF-8"_s);
    }
    test::Texts ids() const {
        test::Texts result;
        for (const auto& entry : entries().load())
            result.push_back(entry.id);
        return result;
    }

    QTemporaryDir m_root;
};

TEST_F(DesktopEntriesTest, TellsWhatAnEntrySaysOfItsApplication) {
    const auto entry = single("Type=Application\nName=Files\nName[de]=Dateien\nIcon=folder\n"
                              "Exec=env A=b /usr/bin/files --new %U\nStartupWMClass=Files\n"
                              "NoDisplay=true\n");
    ASSERT_TRUE(entry);
    EXPECT_EQ(*entry, (DesktopEntry{.id = u"app"_s,
                                    .name = u"Dateien"_s,
                                    .iconName = u"folder"_s,
                                    .program = u"files"_s,
                                    .startupWmClass = u"Files"_s,
                                    .noDisplay = true,
                                    .appliesHere = true}));
}

TEST_F(DesktopEntriesTest, ResolvesTheEscapesOfExecBeforeItsQuoting) {
    const auto entry = single("Type=Application\nName=A\nExec=\"/opt/a \\\\\\\\ b/the\\\\$app\"\n");
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->program, u"the$app"_s);
}

TEST_F(DesktopEntriesTest, NamesEntriesByTheirPathAndSortsThem) {
    write(u"near/applications/z.desktop"_s, "Type=Application\nName=Z\n");
    write(u"near/applications/kde/sub/b.desktop"_s, "Type=Application\nName=B\n");
    write(u"far/applications/a.b.C.desktop"_s, "Type=Application\nName=C\n");
    write(u"far/applications/readme.txt"_s, "Type=Application\nName=No\n");
    EXPECT_EQ(ids(), test::texts({u"a.b.C", u"kde-sub-b", u"z"}));
}

TEST_F(DesktopEntriesTest, LetAnEarlierFolderHideTheSameIdOfLaterOnes) {
    write(u"near/applications/kde-b.desktop"_s, "Type=Application\nName=Near\n");
    write(u"far/applications/kde/b.desktop"_s, "Type=Application\nName=Far\n");
    const auto loaded = entries().load();
    ASSERT_EQ(loaded.size(), 1u);
    EXPECT_EQ(loaded.front().name, u"Near"_s);
}

TEST_F(DesktopEntriesTest, RemoveAnIdThatAnEarlierFolderMarksAsHiddenOrEmpties) {
    write(u"near/applications/a.desktop"_s, "Type=Application\nName=A\nHidden=true\n");
    write(u"near/applications/b.desktop"_s, "");
    for (const auto& id : {u"a"_s, u"b"_s, u"c"_s})
        write(u"far/applications/"_s + id + u".desktop"_s, "Type=Application\nName=Far\n");
    EXPECT_EQ(ids(), test::texts({u"c"}));
}

TEST_F(DesktopEntriesTest, LeaveOutWhatIsNoApplicationOrHasNoName) {
    write(u"near/applications/link.desktop"_s, "Type=Link\nName=Link\n");
    write(u"near/applications/typeless.desktop"_s, "Name=Typeless\n");
    write(u"near/applications/nameless.desktop"_s, "Type=Application\n");
    QDir(m_root.filePath(u"near/applications"_s)).mkdir(u"folder.desktop"_s);
    QFile::link(u"/nowhere"_s, m_root.filePath(u"near/applications/dangling.desktop"_s));
    EXPECT_EQ(ids(), test::Texts());
}

TEST_F(DesktopEntriesTest, FollowSymbolicLinksButNotInCircles) {
    write(u"far/real.desktop"_s, "Type=Application\nName=Real\n");
    QDir().mkpath(m_root.filePath(u"near/applications/sub"_s));
    QFile::link(m_root.filePath(u"far/real.desktop"_s),
                m_root.filePath(u"near/applications/sub/linked.desktop"_s));
    QFile::link(m_root.filePath(u"near/applications"_s),
                m_root.filePath(u"near/applications/sub/circle"_s));
    EXPECT_EQ(ids(), test::texts({u"sub-linked"}));
}

TEST_F(DesktopEntriesTest, ApplyOnlyToTheDesktopsTheyAreMeantFor) {
    const auto appliesHere = [&](const QByteArray& lines) {
        const auto entry = single("Type=Application\nName=A\n" + lines);
        return entry && entry->appliesHere;
    };
    EXPECT_TRUE(appliesHere(""));
    EXPECT_TRUE(appliesHere("OnlyShowIn=Other;Shell;\n"));
    EXPECT_FALSE(appliesHere("OnlyShowIn=Other;\n"));
    EXPECT_FALSE(appliesHere("NotShowIn=Shell\n"));
    EXPECT_TRUE(appliesHere("NotShowIn=Other;\n"));
    // The first of this desktop's names that is listed at all decides.
    EXPECT_TRUE(appliesHere("OnlyShowIn=Custom;\nNotShowIn=Shell;\n"));
    EXPECT_FALSE(appliesHere("OnlyShowIn=Shell;\nNotShowIn=Custom;\n"));
}

TEST_F(DesktopEntriesTest, ApplyOnlyWhereTheProgramToTryIsThere) {
    const auto appliesHere = [&](const QByteArray& tryExec) {
        const auto entry = single("Type=Application\nName=A\nTryExec=" + tryExec + "\n");
        return entry && entry->appliesHere;
    };
    EXPECT_TRUE(appliesHere("sh"));
    EXPECT_TRUE(appliesHere("/bin/sh"));
    EXPECT_FALSE(appliesHere("no-such-program-anywhere"));
    EXPECT_FALSE(appliesHere("/etc/passwd"));
}

TEST_F(DesktopEntriesTest, AreReadAfreshAtEachLoad) {
    const auto reader = entries();
    write(u"near/applications/app.desktop"_s, "Type=Application\nName=One\n");
    ASSERT_EQ(reader.load().size(), 1u);
    write(u"near/applications/app.desktop"_s, "Type=Application\nName=Two\n");
    EXPECT_EQ(reader.load().front().name, u"Two"_s);
    QFile::remove(m_root.filePath(u"near/applications/app.desktop"_s));
    EXPECT_TRUE(reader.load().empty());
}

TEST_F(DesktopEntriesTest, OfThisDesktopFollowTheEnvironment) {
    const auto put = [&](const QString& path, const QByteArray& name) {
        write(path + u"/applications/"_s + QString::fromLatin1(name) + u".desktop"_s,
              "Type=Application\nName=" + name + "\nName[pt_BR]=Nome\nNotShowIn=Quiet\n");
    };
    put(u"home"_s, "own");
    put(u"home/flatpak/exports/share"_s, "flat");
    put(u"system"_s, "system");
    test::ChildProcess child([&] {
        qputenv("XDG_DATA_HOME", QFile::encodeName(m_root.filePath(u"home"_s)));
        qputenv("XDG_DATA_DIRS", QFile::encodeName(m_root.filePath(u"system/"_s)));
        qputenv("XDG_CURRENT_DESKTOP", "Loud:Quiet");
        qputenv("LC_ALL", "de_DE.UTF-8");
        qputenv("LANGUAGE", "pt_BR:es");

        const auto load = [] {
            std::map<QString, DesktopEntry> found;
            for (const auto& entry : DesktopEntries::ofThisDesktop().load())
                found.emplace(entry.id, entry);
            return found;
        };
        auto found = load();
        for (const auto& id : {u"own"_s, u"flat"_s, u"system"_s}) {
            ASSERT_TRUE(found.contains(id)) << id.toStdString();
            EXPECT_EQ(found[id].name, u"Nome"_s);
            EXPECT_FALSE(found[id].appliesHere);
        }

        qputenv("LC_ALL", "C");
        EXPECT_EQ(load()[u"own"_s].name, u"own"_s);
    });
    EXPECT_TRUE(child.succeeds());
}

} // namespace
} // namespace tolvar
