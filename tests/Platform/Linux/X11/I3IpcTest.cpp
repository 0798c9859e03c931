#include "Platform/Linux/X11/I3Ipc.h"

#include "Support/Texts.h"

#include <gtest/gtest.h>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;

TEST(I3Ipc, FindsTiledAndFloatingWindowsOnTheirWorkspaces) {
    const QByteArray tree = R"({"type": "root", "nodes": [{"type": "output", "nodes": [
        {"type": "con", "name": "content", "nodes": [
            {"type": "workspace", "name": "1: web",
             "nodes": [{"type": "con", "window": null, "nodes": [
                {"type": "con", "window": 4194316, "sticky": false, "nodes": []}]}],
             "floating_nodes": [{"type": "floating_con", "nodes": [
                {"type": "con", "window": 4294967295, "sticky": true}]}]},
            {"type": "workspace", "name": "tolvar-blocked", "nodes": [
                {"type": "con", "window": 7}]}]}]}]})";
    const std::map<WindowId, I3Placement> expected{{4194316, {u"1: web"_s, false}},
                                                   {4294967295, {u"1: web"_s, true}},
                                                   {7, {u"tolvar-blocked"_s, false}}};
    EXPECT_EQ(I3Ipc::placementsInTree(tree), expected);
}

TEST(I3Ipc, FindsNothingInWhatIsNoTree) {
    EXPECT_TRUE(I3Ipc::placementsInTree("").empty());
    EXPECT_TRUE(I3Ipc::placementsInTree("[1, 2").empty());
}

TEST(I3Ipc, QuotesNamesSoThatTheyStayOneArgument) {
    EXPECT_EQ(I3Ipc::quoted(u"1: web"_s), u"\"1: web\"");
    EXPECT_EQ(I3Ipc::quoted(u"a \"b\" \\ ; c"_s), u"\"a \\\"b\\\" \\\\ ; c\"");
}

TEST(I3Ipc, IsNotAvailableWhereNobodyListens) {
    EXPECT_FALSE(I3Ipc(u"/nonexistent/socket"_s).isAvailable());
    EXPECT_FALSE(I3Ipc({}).isAvailable());
    EXPECT_FALSE(I3Ipc(QString(200, u'x')).isAvailable());
    EXPECT_TRUE(I3Ipc(u"/nonexistent/socket"_s).placements().empty());
    EXPECT_FALSE(I3Ipc(u"/nonexistent/socket"_s).run(u"nop"_s));
}

} // namespace
} // namespace tolvar
