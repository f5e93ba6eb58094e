// SPDX-License-Identifier: GPL-3.0-or-later
#include "beside/beside_control_qt.h"

#include "preview/engine_loader_qt.h"
#include "preview/page_clipboard_qt.h"

#include <QtCore/QBuffer>

#include <chrono>
#include <utility>

namespace kevra {
namespace {

constexpr std::chrono::seconds patience{2};

} // namespace

BesideControlQt::BesideControlQt(QWidget &parent)
    : m_parent(parent)
{
    m_patience.setSingleShot(true);
    connect(&m_patience, &QTimer::timeout, this, &BesideControlQt::answerOverdue);
}

BesideControlQt::~BesideControlQt() = default;

QWidget *BesideControlQt::widget() const
{
    return m_engine ? m_engine->display().widget() : nullptr;
}

bool BesideControlQt::isSandboxed() const
{
    return m_engine && m_engine->isSandboxed();
}

void BesideControlQt::expectPage(std::shared_ptr<const PageText> page)
{
    m_page = std::move(page);
    m_expected = true;
    ++m_load;
    m_patience.start(patience);
}

bool BesideControlQt::load(
    const std::string &path, const PageScope &scope, std::shared_ptr<const PageText> page)
{
    if (!m_engine)
        m_engine = makeEngine(&m_parent, {*this, *this, *this}, EngineUse::BesideText);
    if (!m_engine)
        return false;
    m_engine->display().setDark(m_dark);
    m_requests.begin(path, scope);
    expectPage(std::move(page));
    m_engine->navigate(m_requests.address(m_requests.document()));
    return true;
}

void BesideControlQt::reload(std::shared_ptr<const PageText> page)
{
    expectPage(std::move(page));
    m_engine->reload();
}

void BesideControlQt::unload()
{
    m_patience.stop();
    ++m_load;
    m_expected = false;
    m_page.reset();
    m_requests.end();
    if (m_engine)
        m_engine->unload();
}

void BesideControlQt::ask(const std::string &call)
{
    m_patience.start(patience);
    m_engine->ask(QString::fromStdString(call), [this, load = m_load](const QString &answer) {
        if (load != m_load)
            return;
        m_patience.stop();
        emit answered(answer);
    });
}

void BesideControlQt::setZoomFactor(double factor)
{
    if (m_engine)
        m_engine->display().setZoomFactor(factor);
}

void BesideControlQt::setDark(bool dark)
{
    m_dark = dark;
    if (m_engine)
        m_engine->display().setDark(dark);
}

bool BesideControlQt::mayNavigate(const QUrl &shown, bool mainFrame)
{
    const auto url = authorsUrl(shown);
    // What frames may load, the request rules say.
    if (!mainFrame)
        return m_page != nullptr;
    if (url == m_requests.document() && std::exchange(m_expected, false))
        return true;
    linkClicked(shown);
    return false;
}

std::optional<QUrl> BesideControlQt::route(const QUrl &url, Resource kind, bool sends)
{
    const auto next = m_requests.route(url, kind, sends);
    if (!next && m_page && kind != Resource::MainFrame)
        emit partRefused();
    return next;
}

QUrl BesideControlQt::authorsUrl(const QUrl &url) const
{
    return plainUrl(url);
}

SchemeAnswer BesideControlQt::answer(const QUrl &url)
{
    // The text as it is in the editor; what the disk has is another frame's or nobody's.
    if (!m_page || url != m_requests.address(m_requests.document()))
        return m_requests.answer(url);
    SchemeAnswer answer{PageAnswer::Kind::File, {}, {}};
    auto content = std::make_unique<QBuffer>();
    content->setData(QByteArray::fromStdString(m_page->shown));
    content->open(QIODevice::ReadOnly);
    answer.file = {std::move(content), "text/html; charset=utf-8"};
    return answer;
}

bool BesideControlQt::mayConnect(const NetworkAddress &address)
{
    return m_requests.mayConnect(address);
}

void BesideControlQt::linkClicked(const QUrl &url)
{
    emit linkFollowed(QString::fromStdString(textOfUrl(authorsUrl(url))));
}

void BesideControlQt::copyRequested()
{
    allowPageCopy();
}

void BesideControlQt::pageMessage(const QString &message)
{
    if (message == "ready")
        m_patience.stop();
    emit messageReceived(message);
}

} // namespace kevra
