#define AL_ALEXT_PROTOTYPES
#include "Platform/Linux/Audio/LoopbackDevice.h"

#include <AL/alext.h>

namespace tolvar::test {

class LoopbackDevice::Voice final : public AudioVoice {
public:
    Voice(LoopbackDevice& device, VoiceNumber number)
        : m_device(device)
        , m_number(number) {}
    ~Voice() override { stop(); }

    std::optional<AudioError> schedule(std::shared_ptr<const AudioBuffer> buffer, Failed) override {
        return m_device.m_output->play(m_number, buffer);
    }
    void stop() override {
        if (m_device.m_output)
            m_device.m_output->silence(m_number);
    }

private:
    LoopbackDevice& m_device;
    VoiceNumber m_number;
};

/// The limiter would hide how much was mixed.
void LoopbackDevice::start() {
    constexpr ALCint attributes[] = {
        ALC_FORMAT_CHANNELS_SOFT, ALC_STEREO_SOFT, ALC_FORMAT_TYPE_SOFT,
        ALC_FLOAT_SOFT,           ALC_FREQUENCY,   48000,
        ALC_OUTPUT_LIMITER_SOFT,  ALC_FALSE,       0};
    if (m_output)
        return;
    m_device = alcLoopbackOpenDeviceSOFT(nullptr);
    m_output = OpenAlOutput::on(m_device, attributes, [] {});
}

void LoopbackDevice::setMainVolume(double volume) {
    m_output->setVolume(static_cast<float>(volume));
}

AudioDevice::Attached LoopbackDevice::attachVoice(const AudioFormat&) {
    return std::make_unique<Voice>(*this, ++m_lastVoice);
}

std::vector<LoopbackDevice::Frame> LoopbackDevice::render(std::size_t frames) {
    std::vector<Frame> heard(frames);
    if (m_output)
        alcRenderSamplesSOFT(m_device, heard.data(), static_cast<ALCsizei>(frames));
    return heard;
}

} // namespace tolvar::test
