#include "Platform/Linux/X11/ProcessFacts.h"

#include <QFile>
#include <QFileInfo>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;

QString programOf(const QString& executable) {
    // A program that was replaced on disk since reads as its old path with this at its end.
    static const QString replaced = u" (deleted)"_s;
    QString path = executable;
    if (path.endsWith(replaced))
        path.chop(replaced.size());
    return QFileInfo(path).fileName();
}

QByteArray variable(const QByteArray& environ, const QByteArray& name) {
    const QByteArray prefix = name + '=';
    for (const QByteArray& entry : environ.split('\0'))
        if (entry.startsWith(prefix))
            return entry.mid(prefix.size());
    return {};
}

} // namespace

QString launchedDesktopFile(const QByteArray& environ, qint64 processIdentifier) {
    if (variable(environ, "GIO_LAUNCHED_DESKTOP_FILE_PID") != QByteArray::number(processIdentifier))
        return {};
    return QFile::decodeName(variable(environ, "GIO_LAUNCHED_DESKTOP_FILE"));
}

ProcessFacts readProcessFacts(qint64 processIdentifier) {
    const QString folder = u"/proc/%1/"_s.arg(processIdentifier);
    ProcessFacts facts;
    facts.program = programOf(QFile::symLinkTarget(folder + u"exe"_s));
    QFile environ(folder + u"environ"_s);
    if (environ.open(QIODevice::ReadOnly))
        facts.launchedDesktopFile = launchedDesktopFile(environ.readAll(), processIdentifier);
    return facts;
}

} // namespace tolvar
