#include "Platform/Linux/Browsers/CompanionConnection.h"

#include <utility>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;

} // namespace

CompanionConnection::CompanionConnection(Descriptor socket, Observer observer)
    : m_socket(std::move(socket))
    , m_observer(std::move(observer))
    , m_readable(m_socket.number(), QSocketNotifier::Read)
    , m_writable(m_socket.number(), QSocketNotifier::Write) {
    m_writable.setEnabled(false);
    QObject::connect(&m_readable, &QSocketNotifier::activated, [this] { read(); });
    QObject::connect(&m_writable, &QSocketNotifier::activated, [this] { write(); });
}

void CompanionConnection::send(std::string_view command) {
    if (m_hasEnded)
        return;
    m_writer.send(command);
    write();
}

void CompanionConnection::read() {
    if (readOnce(m_socket.number(), m_reader) == ReadResult::ended)
        return end();
    while (const auto frame = m_reader.take())
        if (m_hasEnded || !understand(*frame))
            return;
    if (m_reader.isBroken())
        fail(u"a frame that is too long"_s);
}

bool CompanionConnection::understand(const std::string& frame) {
    return m_isNamed ? understandPicture(frame) : understandName(frame);
}

bool CompanionConnection::understandName(const std::string& frame) {
    const auto name = CompanionMessages::browserName(frame);
    if (!name) {
        fail(u"a browser without a name"_s);
        return false;
    }
    m_isNamed = true;
    m_observer.named(*name);
    send(CompanionMessages::listCommand());
    return true;
}

bool CompanionConnection::understandPicture(const std::string& frame) {
    auto tabs = CompanionMessages::shownTabs(frame);
    if (!tabs) {
        fail(u"a message that is no picture of the shown tabs"_s);
        return false;
    }
    m_picture = *std::move(tabs);
    m_observer.changed();
    return true;
}

void CompanionConnection::write() {
    if (!m_writer.flush(m_socket.number()))
        return end();
    m_writable.setEnabled(!m_writer.isIdle());
}

void CompanionConnection::fail(const QString& fault) {
    if (m_hasEnded)
        return;
    end();
    m_observer.failed(fault);
}

/// The descriptor stays open: a notifier that is still to be destroyed holds it.
void CompanionConnection::end() {
    if (std::exchange(m_hasEnded, true))
        return;
    m_readable.setEnabled(false);
    m_writable.setEnabled(false);
    m_observer.changed();
}

} // namespace tolvar
