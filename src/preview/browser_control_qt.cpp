// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/browser_control_qt.h"

#include "desktop/program_folders_qt.h"
#include "desktop/text_qt.h"
#include "preview/browser_window.h"
#include "preview/page_clipboard_qt.h"
#include "preview/preview_commands.h"
#include "storage/native_path.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QMessageAuthenticationCode>
#include <QtCore/QPluginLoader>
#include <QtCore/QRandomGenerator>
#include <QtGui/QOpenGLContext>

#include <filesystem>
#include <utility>

// Exported by Qt for its own modules, which create the shared context the same way when they come late.
Q_GUI_EXPORT void qt_gl_set_global_share_context(QOpenGLContext *context);
Q_GUI_EXPORT QOpenGLContext *qt_gl_global_share_context();

namespace kevra {

namespace {

constexpr auto pluginFile = "libkevra_preview.so";

/// A name need not be valid text; QUrl::fromLocalFile would lose the bytes that are not.
QUrl addressOfFile(const std::string &path)
{
    const auto bytes = QByteArray::fromStdString(path);
    return QUrl::fromEncoded("file://" + bytes.toPercentEncoding("/!$&'()*+,;=:@"));
}

std::string pathOf(const QUrl &file)
{
    const auto encoded = file.path(QUrl::FullyEncoded).toLatin1();
    const auto path = QByteArray::fromPercentEncoding(encoded).toStdString();
    return file.host().isEmpty() ? path : "//" + file.host().toStdString() + path;
}

PageAddress pageAddress(const QUrl &url)
{
    const auto path = url.path(QUrl::FullyEncoded).toLatin1();
    auto rest = path;
    if (url.hasQuery())
        rest += '?' + url.query(QUrl::FullyEncoded).toLatin1();
    if (url.hasFragment())
        rest += '#' + url.fragment(QUrl::FullyEncoded).toLatin1();
    return {url.scheme().toStdString(), url.authority(QUrl::FullyEncoded).toLower().toStdString(),
        QByteArray::fromPercentEncoding(path).toStdString(), rest.toStdString()};
}

QUrl urlOf(const PageAddress &address)
{
    return QUrl::fromEncoded(
        QByteArray::fromStdString(address.scheme + "://" + address.host + address.rest), QUrl::StrictMode);
}

/// With a key of its own, so that what one page has learned is worth nothing to the next.
PageRoutes::Sign newSignature()
{
    QByteArray key(32, 0);
    QRandomGenerator::system()->generate(key.begin(), key.end());
    return [key](std::string_view text) {
        const auto code = QMessageAuthenticationCode::hash(
            QByteArray(text.data(), static_cast<qsizetype>(text.size())), key, QCryptographicHash::Sha256);
        return code.first(16).toHex().toStdString();
    };
}

/// With links and ".." resolved, so that no way around leads out of a folder.
std::string resolved(const std::string &path)
{
    std::error_code missing;
    const auto canonical = std::filesystem::canonical(path, missing);
    return (missing ? std::filesystem::path(path).lexically_normal() : canonical).string();
}

std::string addressOf(const QUrl &url)
{
    return url.toString(QUrl::FullyEncoded).toStdString();
}

/// Beside the program, where it is built or carried about; else where it is installed.
QString pluginPath()
{
    const QDir program(QCoreApplication::applicationDirPath());
    for (const char *folder : {"./", "../lib/kevra/plugins/"}) {
        if (auto path = program.filePath(QString(folder) + pluginFile); QFileInfo::exists(path))
            return path;
    }
    return program.filePath(pluginFile);
}

/// What AA_ShareOpenGLContexts has an application do when it starts. The web engine cannot do without it, and
/// it costs as much as the whole start of a program that may never show a page.
void shareGraphicsContexts()
{
    if (qt_gl_global_share_context())
        return;
    auto *context = new QOpenGLContext;
    context->setFormat(QSurfaceFormat::defaultFormat());
    context->create();
    qt_gl_set_global_share_context(context);
    // Behind the engine's own end, which is asked for later and so comes first.
    qAddPostRoutine([] {
        delete qt_gl_global_share_context();
        qt_gl_set_global_share_context(nullptr);
    });
}

} // namespace

BrowserControlQt::BrowserControlQt(BrowserWindow &window)
    : m_window(window)
    , m_routes(newSignature())
{
}

BrowserControlQt::~BrowserControlQt() = default;

bool BrowserControlQt::loadEngine()
{
    if (m_engine)
        return true;
    // The plugin stays loaded when this object goes: the engine cannot be started twice.
    shareGraphicsContexts();
    const auto path = pluginPath();
    QPluginLoader loader(path);
    auto *plugin = qobject_cast<BrowserEnginePlugin *>(loader.instance());
    if (!plugin)
        return false;
    m_engine = plugin->create(&m_window, *this, QFileInfo(path).absolutePath());
    if (!m_engine)
        return false;
    m_window.setPageWidget(m_engine->widget());
    if (!m_engine->isSandboxed())
        m_window.showNote("The page is shown without the browser's sandbox");
    return true;
}

bool BrowserControlQt::navigate(const std::string &path, const PageScope &scope)
{
    if (!loadEngine())
        return false;
    m_scope = {resolved(nativePath(scope.folder, documentsFolder())),
        resolved(nativePath(scope.site, documentsFolder()))};
    m_askedPath = path;
    m_askedUrl = addressOfFile(nativePath(path, documentsFolder()));
    m_routes = PageRoutes(newSignature());
    m_engine->navigate(urlOf(m_routes.document(pageAddress(m_askedUrl))));
    if (std::exchange(m_zoomedPath, path) != path)
        m_engine->zoom(0);
    return true;
}

void BrowserControlQt::follow(const std::string &address)
{
    if (!m_engine)
        return;
    const QUrl url(QString::fromStdString(address));
    m_engine->follow(url.isLocalFile() ? urlOf(m_routes.document(pageAddress(url))) : url);
}

void BrowserControlQt::resizeTo(int width, int height)
{
    if (m_engine)
        m_engine->runScript(QString("window.resizeTo(%1, %2)").arg(width).arg(height));
}

void BrowserControlQt::unload()
{
    m_askedPath.clear();
    m_askedUrl.clear();
    if (m_engine)
        m_engine->unload();
    m_window.showProgress(100);
}

void BrowserControlQt::zoom(int steps)
{
    if (m_engine)
        m_engine->zoom(steps);
}

void BrowserControlQt::find(const QString &text, bool backward)
{
    if (m_engine)
        m_engine->find(text, backward);
}

void BrowserControlQt::found(int place, int places)
{
    m_window.showFound(place, places);
}

bool BrowserControlQt::beforeNavigate(const QUrl &shown, bool mainFrame)
{
    const auto url = plain(shown);
    Navigation target{addressOf(url), {}, mainFrame ? Frame::Main : Frame::Sub};
    if (url == m_askedUrl)
        target.path = m_askedPath;
    else if (url.isLocalFile())
        target.path = pathOf(url);
    // An empty frame is made, not gone to.
    if (!mainFrame && url.scheme() == "about")
        return true;
    return m_commands->beforeNavigate(target);
}

std::optional<QUrl> BrowserControlQt::route(const QUrl &url, Resource kind, bool sends)
{
    const auto known = plain(url);
    PageRequest request{kind, known.scheme().toStdString(), {}, sends};
    if (known.isLocalFile())
        request.path = resolved(pathOf(known));
    if (!kevra::allowsRequest(request, m_scope, m_remote))
        return std::nullopt;
    const auto asked = pageAddress(url);
    const auto next = m_routes.next(kind, asked);
    const auto target = next == asked ? url : urlOf(next);
    return target.isValid() ? std::optional(target) : std::nullopt;
}

QUrl BrowserControlQt::plain(const QUrl &url) const
{
    const auto address = pageAddress(url);
    const auto known = plainAddress(address);
    return known == address ? url : urlOf(known);
}

SchemeAnswer BrowserControlQt::answer(const QUrl &url)
{
    const auto given = m_routes.answer(pageAddress(url));
    SchemeAnswer answer{given.kind, urlOf(given.address), {}};
    if (given.kind == PageAnswer::Kind::File)
        answer.file = openPageFile(given.address.path);
    if (given.kind == PageAnswer::Kind::Web && m_remote == Remote::Off)
        answer.kind = PageAnswer::Kind::Refused;
    return answer;
}

bool BrowserControlQt::mayConnect(const NetworkAddress &address)
{
    return m_remote == Remote::On && isPublic(address);
}

void BrowserControlQt::linkClicked(const QUrl &url)
{
    m_commands->linkClicked(addressOf(plain(url)));
}

void BrowserControlQt::copyAsked()
{
    allowPageCopy();
}

void BrowserControlQt::loadProgress(int percent)
{
    m_window.showProgress(percent);
}

void BrowserControlQt::loadFinished()
{
    m_commands->navigationComplete();
}

void BrowserControlQt::processDied()
{
    m_commands->pageFailed();
}

} // namespace kevra
