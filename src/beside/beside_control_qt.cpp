// SPDX-License-Identifier: GPL-3.0-or-later
#include "beside/beside_control_qt.h"

#include "preview/engine_loader_qt.h"
#include "preview/page_clipboard_qt.h"

#include <chrono>
#include <utility>

namespace kevra {
namespace {

/// How long a page may take over so many bytes before the user is told: 2 s, and 5 s a megabyte.
std::chrono::milliseconds patience(std::size_t bytes)
{
    return std::chrono::milliseconds(2000 + bytes / 200);
}

} // namespace

BesideControlQt::BesideControlQt(QWidget &parent)
    : m_parent(parent)
    , m_requests([this] { emit partRefused(); })
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
    m_patience.start(patience(page->shown.size()));
    m_requests.setPage(std::move(page));
    m_expected = true;
    ++m_load;
}

bool BesideControlQt::load(
    const std::string &path, const PageScope &scope, std::shared_ptr<const PageText> page)
{
    if (!m_engine)
        m_engine = makeEngine(&m_parent, {*this, m_requests, *this, *this}, EngineUse::BesideText);
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
    m_requests.setPage(nullptr);
    m_requests.end();
    if (m_engine)
        m_engine->unload();
}

void BesideControlQt::ask(const std::string &call)
{
    m_patience.start(patience(call.size()));
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
    const auto url = plainUrl(shown);
    // What frames may load, the request rules say.
    if (!mainFrame)
        return m_requests.hasPage();
    if (url == m_requests.document() && std::exchange(m_expected, false))
        return true;
    linkClicked(shown);
    return false;
}

void BesideControlQt::linkClicked(const QUrl &url)
{
    emit linkFollowed(QString::fromStdString(textOfUrl(plainUrl(url))));
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
