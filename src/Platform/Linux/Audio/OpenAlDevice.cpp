#include "Platform/Linux/Audio/OpenAlDevice.h"

#include "Platform/Linux/Audio/OpenAlConfiguration.h"
#include "Platform/Linux/Audio/OpenAlOutput.h"
#include "Platform/Linux/Audio/ThreadedAudioDevice.h"

namespace tolvar {

std::unique_ptr<AudioDevice> OpenAlDevice::create() {
    configureOpenAlForInterfaceSounds();
    return std::make_unique<ThreadedAudioDevice>(&OpenAlOutput::open);
}

} // namespace tolvar
