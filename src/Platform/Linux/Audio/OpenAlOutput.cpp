#define AL_ALEXT_PROTOTYPES
#include "Platform/Linux/Audio/OpenAlOutput.h"

#include <AL/al.h>
#include <AL/alext.h>

#include <algorithm>
#include <utility>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;

/// What the extension AL_SOFTX_events offers; OpenAL's headers do not have it yet.
namespace Events {

using Callback = void(AL_APIENTRY*)(ALenum type, ALuint object, ALuint parameter, ALsizei length,
                                    const ALchar* message, void* user);
using SetCallback = void(AL_APIENTRY*)(Callback callback, void* user);
using Control = void(AL_APIENTRY*)(ALsizei count, const ALenum* types, ALboolean enable);

constexpr ALenum disconnected = 0x1227;

} // namespace Events

template<typename Function>
Function functionNamed(const char* name) {
    return reinterpret_cast<Function>(alGetProcAddress(name));
}

/// Both loudspeakers get all of a single channel.
std::vector<float> inStereo(const AudioBuffer& buffer) {
    if (buffer.format.channels == 2)
        return buffer.samples;
    std::vector<float> stereo;
    stereo.reserve(2 * buffer.samples.size());
    for (const float sample : buffer.samples)
        stereo.insert(stereo.end(), {sample, sample});
    return stereo;
}

QString errorText(ALenum error) {
    return QString::fromUtf8(alGetString(error)).toLower();
}

} // namespace

void OpenAlOutput::DestroyContext::operator()(ALCcontext* context) const {
    alcSetThreadContext(nullptr);
    alcDestroyContext(context);
}

std::unique_ptr<AudioOutput> OpenAlOutput::open(Lost lost) {
    ALCdevice* device = alcOpenDevice(nullptr);
    return device ? on(device, nullptr, std::move(lost)) : nullptr;
}

std::unique_ptr<OpenAlOutput> OpenAlOutput::on(ALCdevice* device, const ALCint* attributes,
                                               Lost lost) {
    Device owned(device);
    Context context(alcCreateContext(device, attributes));
    if (!context || !alcSetThreadContext(context.get()))
        return nullptr;
    if (!alIsExtensionPresent("AL_EXT_FLOAT32"))
        return nullptr;
    return std::unique_ptr<OpenAlOutput>(
        new OpenAlOutput(std::move(owned), std::move(context), std::move(lost)));
}

OpenAlOutput::OpenAlOutput(Device device, Context context, Lost lost)
    : m_lost(std::move(lost))
    , m_device(std::move(device))
    , m_context(std::move(context)) {
    watchConnection();
}

OpenAlOutput::~OpenAlOutput() {
    while (!m_sources.empty())
        silence(m_sources.begin()->first);
    for (const Upload& upload : m_uploads)
        alDeleteBuffers(1, &upload.name);
}

void OpenAlOutput::watchConnection() {
    if (!alIsExtensionPresent("AL_SOFTX_events"))
        return;
    const auto setCallback = functionNamed<Events::SetCallback>("alEventCallbackSOFT");
    const auto control = functionNamed<Events::Control>("alEventControlSOFT");
    setCallback([](ALenum, ALuint, ALuint, ALsizei, const ALchar*,
                   void* lost) { (*static_cast<const Lost*>(lost))(); },
                &m_lost);
    control(1, &Events::disconnected, AL_TRUE);
}

bool OpenAlOutput::isConnected() const {
    ALCint connected = ALC_TRUE;
    if (alcIsExtensionPresent(m_device.get(), "ALC_EXT_disconnect"))
        alcGetIntegerv(m_device.get(), ALC_CONNECTED, 1, &connected);
    return connected == ALC_TRUE;
}

void OpenAlOutput::setVolume(float volume) {
    alListenerf(AL_GAIN, volume);
}

std::optional<AudioError> OpenAlOutput::play(VoiceNumber voice,
                                             const std::shared_ptr<const AudioBuffer>& buffer) {
    alGetError();
    const ALuint name = uploaded(buffer);
    const ALuint player = source(voice);
    alSourceStop(player);
    alSourcei(player, AL_BUFFER, static_cast<ALint>(name));
    alSourcePlay(player);
    const ALenum error = alGetError();
    return error == AL_NO_ERROR ? std::nullopt : std::optional(AudioError{errorText(error)});
}

void OpenAlOutput::silence(VoiceNumber voice) {
    const auto found = m_sources.find(voice);
    if (found == m_sources.end())
        return;
    alSourceStop(found->second);
    alDeleteSources(1, &found->second);
    m_sources.erase(found);
}

unsigned OpenAlOutput::source(VoiceNumber voice) {
    const auto found = m_sources.find(voice);
    if (found != m_sources.end())
        return found->second;
    ALuint name = 0;
    alGenSources(1, &name);
    alSourcei(name, AL_DIRECT_CHANNELS_SOFT, AL_TRUE);
    return m_sources.emplace(voice, name).first->second;
}

unsigned OpenAlOutput::uploaded(const std::shared_ptr<const AudioBuffer>& buffer) {
    const auto found = std::find_if(m_uploads.begin(), m_uploads.end(),
                                    [&](const Upload& upload) { return upload.buffer == buffer; });
    if (found != m_uploads.end())
        return found->name;
    ALuint name = 0;
    alGenBuffers(1, &name);
    const std::vector<float> samples = inStereo(*buffer);
    alBufferData(name, AL_FORMAT_STEREO_FLOAT32, samples.data(),
                 static_cast<ALsizei>(samples.size() * sizeof(float)), buffer->format.sampleRate);
    m_uploads.push_back({buffer, name});
    return name;
}

} // namespace tolvar
