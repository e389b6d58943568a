// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/Connections.h"

#include "http/WebRules.h"

#include <QSslCertificate>
#include <QUrl>

#include <algorithm>
#include <utility>

namespace {

/// The TLS library keeps sessions for an hour or more; a search meets few origins.
constexpr qsizetype mostSessions = 1000;

QNetworkProxy proxyAt(const QUrl& url)
{
    constexpr int httpPort = 8080;
    constexpr int socksPort = 1080;
    const bool isSocks = url.scheme().startsWith(QLatin1String("socks"));
    return { isSocks ? QNetworkProxy::Socks5Proxy : QNetworkProxy::HttpProxy, url.host(),
        static_cast<quint16>(url.port(isSocks ? socksPort : httpPort)), url.userName(), url.password() };
}

} // namespace

Connections::Connections(const WebRules& rules)
    : m_rules(rules)
{
    connect(&m_closing, &QTimer::timeout, this, &Connections::closeOld);
}

Connections::~Connections()
{
    reset();
}

std::unique_ptr<QTcpSocket> Connections::takeIdle(const Origin& origin)
{
    // The newest first: it is the least likely to have been closed by the server.
    const auto found =
        std::find_if(m_idle.rbegin(), m_idle.rend(), [&origin](const Idle& idle) { return idle.origin == origin; });
    if (found == m_idle.rend())
        return nullptr;
    std::unique_ptr<QTcpSocket> socket = std::move(found->socket);
    m_idle.erase(std::next(found).base());
    socket->disconnect(this);
    return socket;
}

void Connections::keep(const Origin& origin, std::unique_ptr<QTcpSocket> socket)
{
    QTcpSocket* const kept = socket.get();
    // A byte that nobody has asked for would be taken for the beginning of the next answer.
    connect(kept, &QTcpSocket::readyRead, this, [this, kept] { drop(kept); });
    connect(kept, &QTcpSocket::disconnected, this, [this, kept] { drop(kept); });
    m_idle.push_back({ origin, std::move(socket), std::chrono::steady_clock::now() });
    if (m_idle.size() > mostIdle)
        drop(m_idle.front().socket.get());
    if (!m_closing.isActive())
        m_closing.start(idleLimit);
}

void Connections::drop(const QTcpSocket* socket)
{
    const auto found =
        std::find_if(m_idle.begin(), m_idle.end(), [socket](const Idle& idle) { return idle.socket.get() == socket; });
    if (found == m_idle.end())
        return;
    std::unique_ptr<QTcpSocket> dropped = std::move(found->socket);
    m_idle.erase(found);
    dropped->disconnect(this);
    dropped->abort();
    // Later, since one of its signals may have called this.
    dropped.release()->deleteLater();
}

void Connections::closeOld()
{
    const auto oldest = std::chrono::steady_clock::now() - idleLimit;
    while (!m_idle.empty() && m_idle.front().since <= oldest)
        drop(m_idle.front().socket.get());
    if (m_idle.empty())
        m_closing.stop();
}

void Connections::reset()
{
    while (!m_idle.empty())
        drop(m_idle.back().socket.get());
    m_sessions.clear();
    m_tls = QSslConfiguration();
    m_certificateFile.clear();
}

QSslConfiguration Connections::tlsFor(const Origin& origin)
{
    if (m_tls.isNull() || m_certificateFile != m_rules.certificateFile) {
        m_certificateFile = m_rules.certificateFile;
        m_tls = QSslConfiguration::defaultConfiguration();
        m_tls.setProtocol(QSsl::TlsV1_2OrLater);
        m_tls.setSslOption(QSsl::SslOptionDisableSessionPersistence, false);
        // The default set loads the system's certificates one by one as they are needed. A set with a certificate of
        // our own does not, so it must name them all; each handshake takes longer then.
        if (!m_certificateFile.isEmpty()) {
            m_tls.setCaCertificates(
                QSslConfiguration::systemCaCertificates() + QSslCertificate::fromPath(m_certificateFile));
        }
    }
    QSslConfiguration tls = m_tls;
    if (const auto session = m_sessions.constFind(origin); session != m_sessions.cend())
        tls.setSessionTicket(*session);
    return tls;
}

void Connections::rememberSession(const Origin& origin, const QSslConfiguration& used)
{
    const QByteArray session = used.sessionTicket();
    if (session.isEmpty())
        return;
    if (m_sessions.size() >= mostSessions && !m_sessions.contains(origin))
        m_sessions.clear();
    m_sessions.insert(origin, session);
}

QNetworkProxy Connections::proxyFor(const Origin& origin) const
{
    if (m_rules.proxy == QLatin1String("none"))
        return QNetworkProxy::NoProxy;
    if (!m_rules.proxy.isEmpty())
        return proxyAt(QUrl(m_rules.proxy));
    QUrl url;
    url.setScheme(origin.isSecure ? QStringLiteral("https") : QStringLiteral("http"));
    url.setHost(QString::fromLatin1(origin.host));
    url.setPort(origin.port);
    return QNetworkProxyFactory::systemProxyForQuery(QNetworkProxyQuery(url)).value(0, QNetworkProxy::NoProxy);
}
