#include "BrowserHost/Caller.h"

#include "BrowserExtensionIds.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <string>

namespace tolvar::test {
namespace {

const std::string origin = std::string("chrome-extension://") + chromiumExtensionId + "/";
constexpr char manifest[] =
    "/home/somebody/.mozilla/native-messaging-hosts/app.tolvar.browser.json";

TEST(Caller, IsOurExtensionInEitherKindOfBrowser) {
    EXPECT_TRUE(Caller::isOurExtension({origin}));
    EXPECT_TRUE(Caller::isOurExtension({manifest, firefoxExtensionId}));
}

TEST(Caller, IsNobodyElse) {
    const std::string other = "chrome-extension://aaaabbbbccccddddeeeeffffgggghhhh/";
    EXPECT_FALSE(Caller::isOurExtension({}));
    EXPECT_FALSE(Caller::isOurExtension({""}));
    EXPECT_FALSE(Caller::isOurExtension({other}));
    EXPECT_FALSE(Caller::isOurExtension({other, origin}));
    EXPECT_FALSE(Caller::isOurExtension({origin + "page"}));
    EXPECT_FALSE(Caller::isOurExtension({origin.substr(0, origin.size() - 1)}));
    EXPECT_FALSE(Caller::isOurExtension({manifest}));
    EXPECT_FALSE(Caller::isOurExtension({firefoxExtensionId}));
    EXPECT_FALSE(Caller::isOurExtension({firefoxExtensionId, firefoxExtensionId}));
    EXPECT_FALSE(Caller::isOurExtension({manifest, "other@example.com"}));
    EXPECT_FALSE(Caller::isOurExtension({manifest, firefoxExtensionId, "more"}));
}

class NamedProcess : public testing::Test {
protected:
    /// A copy of `sleep` under that name, running.
    void run(const std::string& name) {
        program = folder / name;
        std::filesystem::copy_file("/bin/sleep", program);
        process = ::fork();
        if (process == 0) {
            ::execl(program.c_str(), "another name", "60", nullptr);
            ::_exit(127);
        }
        while (std::filesystem::read_symlink("/proc/" + std::to_string(process) + "/exe") !=
               program)
            ::usleep(100);
    }

    void TearDown() override {
        ::kill(process, SIGKILL);
        ::waitpid(process, nullptr, 0);
        std::filesystem::remove_all(folder);
    }

    std::string pattern = std::filesystem::temp_directory_path() / "tolvar-caller-XXXXXX";
    std::filesystem::path folder = ::mkdtemp(pattern.data());
    std::filesystem::path program;
    pid_t process = -1;
};

TEST_F(NamedProcess, IsNamedByItsExecutable) {
    run("firefox-esr");
    EXPECT_EQ(Caller::browserName(process), "firefox-esr");
}

TEST_F(NamedProcess, KeepsItsNameWhenItIsReplacedByANewerVersion) {
    run("chromium");
    std::filesystem::remove(program);
    EXPECT_EQ(Caller::browserName(process), "chromium");
}

TEST_F(NamedProcess, HasOnlyOrdinaryLettersInItsName) {
    run("my \"brow\\ser\"\n{2}" + std::string(100, 'x'));
    EXPECT_EQ(Caller::browserName(process), "mybrowser2" + std::string(54, 'x'));
}

TEST(Caller, IsABrowserWhenItIsGone) {
    EXPECT_EQ(Caller::browserName(0), "browser");
}

} // namespace
} // namespace tolvar::test
