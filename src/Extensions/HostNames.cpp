#include "Extensions/HostNames.h"

#include <QRegularExpression>
#include <QStringList>
#include <QUrl>

#include <algorithm>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;

bool isAscii(const QString& text) {
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c < QChar(0x80); });
}

/// The A-label of a label; one that is no valid internationalised label only lower-cased.
QString asciiLabel(const QString& label) {
    if (!isAscii(label))
        if (const auto ascii = QUrl::toAce(label); !ascii.isEmpty())
            return QString::fromLatin1(ascii);
    return label.toLower();
}

QString asciiName(const QString& name) {
    // UTS #46 takes these three for full stops, too.
    static const QRegularExpression fullStops(u"[.\u3002\uFF0E\uFF61]"_s);
    auto labels = name.split(fullStops);
    std::transform(labels.begin(), labels.end(), labels.begin(), asciiLabel);
    return labels.join(u'.');
}

/// One spelling for each IPv6 address, of which there are many.
QString canonicalAddress(const QString& address) {
    QUrl url;
    url.setHost(address);
    return url.host();
}

/// The host as the URL has it, in our one spelling. Not QUrl's host, which is none at all where a
/// label breaks the rules of registries ("a..b", "-x.y") that browsers and resolvers let pass.
QString spelledHostOf(const QString& url) {
    static const QRegularExpression withHost(
        u"\\A(?:[a-z][a-z0-9+.-]*:)?//"                              // scheme
        "(?:[^/?#]*@)?"                                              // user
        "(?:\\[(?<address>[0-9a-f:.]+)\\]|(?<name>[^/?#@:\\[\\]]+))" // host
        "(?::[0-9]*)?(?:[/?#]|\\z)"_s,                               // port
        QRegularExpression::CaseInsensitiveOption);
    const auto match = withHost.match(url);
    if (match.hasCaptured(u"address"))
        return canonicalAddress(match.captured(u"address"));
    return asciiName(QUrl::fromPercentEncoding(match.captured(u"name").toUtf8()));
}

} // namespace

QString hostOf(const QString& url) {
    auto host = spelledHostOf(url);
    if (host.endsWith(u'.'))
        host.chop(1);
    return host;
}

QString normalizedHost(const QString& text) {
    const auto trimmed = text.trimmed();
    auto host = spelledHostOf(trimmed);
    if (host.isEmpty())
        host = spelledHostOf(u"https://"_s + trimmed);
    if (host.isEmpty())
        host = trimmed.toLower();
    return host.startsWith("www."_L1) ? host.sliced(4) : host;
}

} // namespace tolvar
