#include "BrowserHost/AppFinder.h"
#include "BrowserHost/Caller.h"
#include "BrowserHost/Host.h"
#include "BrowserHost/PrivateFolder.h"

#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstring>
#include <string_view>
#include <vector>

/// The program that browsers start for Tolvar's extension and speak to by native messaging. Ends
/// with 0 when the browser ends the connection, with 2 when it was started for anybody else, and
/// with 1 at anything else that makes it useless.
int main(int count, char** words) {
    using namespace tolvar;
    if (!Caller::isOurExtension(std::vector<std::string_view>(words + 1, words + count))) {
        std::fputs("tolvar-browser-host: to be started by a browser for Tolvar's extension\n",
                   stderr);
        return 2;
    }
    // A pipe that nobody reads is an error of writing, not the end.
    std::signal(SIGPIPE, SIG_IGN);
    Host host(Caller::browserName(::getppid()), AppFinder(PrivateFolder::path()), STDIN_FILENO,
              STDOUT_FILENO);
    switch (host.run()) {
    case Host::Outcome::browserLeft:
        return 0;
    case Host::Outcome::wrongFrame:
        std::fputs("tolvar-browser-host: a frame that is too long\n", stderr);
        return 1;
    case Host::Outcome::nowhereToWait:
        std::fprintf(stderr, "tolvar-browser-host: cannot wait for Tolvar in “%s”: %s\n",
                     host.finder().folder().c_str(), std::strerror(host.finder().watchError()));
        return 1;
    }
    return 1;
}
