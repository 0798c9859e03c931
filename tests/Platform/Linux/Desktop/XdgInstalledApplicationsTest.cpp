#include "Platform/Linux/Desktop/XdgInstalledApplications.h"

#include "Support/Texts.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;

class XdgInstalledApplicationsTest : public testing::Test {
protected:
    void add(const QString& id, const QByteArray& lines) {
        QDir(m_folder.path()).mkdir(u"applications"_s);
        QFile file(m_folder.filePath(u"applications/"_s + id + u".desktop"_s));
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write("[Desktop Entry]\nType=Application\n" + lines);
    }
    std::vector<InstalledApplication> list() const {
        return XdgInstalledApplications(DesktopEntries({m_folder.path()}, {u"Shell"_s}, {})).list();
    }
    test::Texts names() const {
        test::Texts result;
        for (const auto& application : list())
            result.push_back(application.displayName);
        return result;
    }

    QTemporaryDir m_folder;
};

TEST_F(XdgInstalledApplicationsTest, AreKnownByIdNameAndIcon) {
    add(u"org.gnome.Calculator"_s, "Name=Calculator\nIcon=calculator\nExec=gnome-calculator\n");
    EXPECT_EQ(list(), (std::vector<InstalledApplication>{
                          {u"org.gnome.Calculator"_s, u"Calculator"_s, u"calculator"_s}}));
}

TEST_F(XdgInstalledApplicationsTest, AreSortedByScalarsWithUpperCaseFirst) {
    add(u"1"_s, "Name=zoom\n");
    add(u"2"_s, "Name=Éclair\n");
    add(u"3"_s, "Name=abc\n");
    add(u"4"_s, "Name=Zed\n");
    add(u"5"_s, "Name=Abc\n");
    EXPECT_EQ(names(), test::texts({u"Abc", u"Zed", u"abc", u"zoom", u"Éclair"}));
}

TEST_F(XdgInstalledApplicationsTest, KeepTwoOfOneNameApartInTheOrderOfTheirIds) {
    add(u"b"_s, "Name=Same\n");
    add(u"a"_s, "Name=Same\n");
    const auto applications = list();
    ASSERT_EQ(applications.size(), 2u);
    EXPECT_EQ(applications[0].bundleIdentifier, u"a"_s);
    EXPECT_EQ(applications[1].bundleIdentifier, u"b"_s);
}

TEST_F(XdgInstalledApplicationsTest, LeaveOutWhatMenusLeaveOut) {
    add(u"shown"_s, "Name=Shown\n");
    add(u"noDisplay"_s, "Name=NoDisplay\nNoDisplay=true\n");
    add(u"hidden"_s, "Name=Hidden\nHidden=true\n");
    add(u"elsewhere"_s, "Name=Elsewhere\nOnlyShowIn=Other;\n");
    add(u"missing"_s, "Name=Missing\nTryExec=no-such-program-anywhere\n");
    EXPECT_EQ(names(), test::texts({u"Shown"}));
}

TEST_F(XdgInstalledApplicationsTest, AreNoneWhereThereIsNoFolder) {
    EXPECT_TRUE(list().empty());
}

} // namespace
} // namespace tolvar
