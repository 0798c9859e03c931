#pragma once

namespace tolvar {

/// Makes OpenAL answer quickly in this process: periods of 256 frames, two of them, rather than
/// three of 1024. Has it look for a PulseAudio server first, the one of PipeWire included, as the
/// desktop's choice of output is kept there. Leaves out the devices that nobody hears (one that
/// plays nowhere, one that writes a file), so that a machine without sound has none, and keeps the
/// libraries from writing to standard error about it.
///
/// OpenAL reads this from environment variables, and from a file that one of them names, at its
/// first use; the file of ours exists in memory alone. A variable that is set already is left as it
/// is. To be called before anything else of OpenAL, from the main thread, as the environment
/// belongs to all threads. Where it fails, OpenAL works as it is.
void configureOpenAlForInterfaceSounds();

} // namespace tolvar
