#pragma once

#include "BrowserHost/Descriptor.h"
#include "BrowserHost/Frames.h"
#include "Platform/Linux/Browsers/CompanionMessages.h"

#include <QSocketNotifier>
#include <QString>

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tolvar {

/// One companion of a browser, and the picture it last gave of the browser's shown tabs.
class CompanionConnection {
public:
    /// Told in the midst of reading or writing: none may destroy the connection.
    struct Observer {
        /// The browser has told its name.
        std::function<void(const QString& name)> named;
        /// There is a new picture, or the connection has ended.
        std::function<void()> changed;
        /// Something was said that no companion says; the connection has ended.
        std::function<void(const QString& fault)> failed;
    };

    CompanionConnection(Descriptor socket, Observer observer);

    /// Whether nothing is heard of it any more, and nothing can be said to it.
    bool hasEnded() const { return m_hasEnded; }
    /// The shown tabs; nothing until they were told.
    const std::optional<std::vector<CompanionMessages::ShownTab>>& picture() const {
        return m_picture;
    }
    /// Sends a command as soon as the companion takes it. Never waits; a command that cannot be
    /// sent yet is replaced by the next.
    void send(std::string_view command);
    /// Hangs up for a fault, which the observer is told; nothing where it has ended.
    void fail(const QString& fault);

private:
    void read();
    bool understand(const std::string& frame);
    bool understandName(const std::string& frame);
    bool understandPicture(const std::string& frame);
    void write();
    void end();

    Descriptor m_socket;
    Observer m_observer;
    QSocketNotifier m_readable;
    QSocketNotifier m_writable;
    FrameReader m_reader;
    FrameWriter m_writer;
    bool m_isNamed = false;
    bool m_hasEnded = false;
    std::optional<std::vector<CompanionMessages::ShownTab>> m_picture;
};

} // namespace tolvar
