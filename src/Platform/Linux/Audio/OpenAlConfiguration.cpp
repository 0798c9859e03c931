#include "Platform/Linux/Audio/OpenAlConfiguration.h"

#include <QByteArray>
#include <QtGlobal>

#include <dlfcn.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <string_view>

namespace tolvar {

namespace {

constexpr const char* configurationVariable = "ALSOFT_CONF";
constexpr const char* logLevelVariable = "ALSOFT_LOGLEVEL";

constexpr std::string_view configuration = "[general]\n"
                                           "period_size = 256\n"
                                           "periods = 2\n"
                                           "drivers = -null,-wave,pulse,\n";

/// The descriptor stays open, as OpenAL reads the file whenever it is first used. -1 on failure.
int fileInMemory(std::string_view text) {
    const int file = memfd_create("alsoft.conf", MFD_CLOEXEC);
    if (file < 0)
        return -1;
    if (write(file, text.data(), text.size()) == static_cast<ssize_t>(text.size()))
        return file;
    close(file);
    return -1;
}

void ignoreAlsaError(const char*, int, const char*, int, const char*, ...) {}

/// To ALSA, every device that is not there is an error to be told in many lines. OpenAL brings ALSA
/// along or loads it later, as it was built; in the latter case it is too early to quieten it.
void quietenAlsa() {
    using SetHandler = int (*)(decltype(&ignoreAlsaError));
    if (void* found = dlsym(RTLD_DEFAULT, "snd_lib_error_set_handler"))
        reinterpret_cast<SetHandler>(found)(&ignoreAlsaError);
}

void quietenOpenAl() {
    if (!qEnvironmentVariableIsSet(logLevelVariable))
        qputenv(logLevelVariable, "0");
}

void answerQuickly() {
    if (qEnvironmentVariableIsSet(configurationVariable))
        return;
    const int file = fileInMemory(configuration);
    if (file >= 0)
        qputenv(configurationVariable, "/proc/self/fd/" + QByteArray::number(file));
}

} // namespace

void configureOpenAlForInterfaceSounds() {
    quietenAlsa();
    quietenOpenAl();
    answerQuickly();
}

} // namespace tolvar
