// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/plugin/page_profiles_qt.h"

#include "preview/page_bounds.h"
#include "preview/plugin/page_scheme_qt.h"
#include "preview/plugin/page_watch_qt.h"

#include <QtCore/QTimer>
#include <QtWebEngineCore/QWebEngineDownloadRequest>

#include <utility>

namespace kevra {

namespace {

/// Deleting a profile waits for all that its pages have asked for, which takes seconds after a page that
/// never stopped asking. Left alone that is worked off between two keys of the user's.
constexpr int timeToSettle = 5000; ///< ms

} // namespace

QWebEngineProfile &PageProfiles::forNewPage()
{
    if (m_current && editorMemory() - m_before > bounds::profileGrowth)
        retire();
    if (!m_current)
        begin();
    return *m_current;
}

void PageProfiles::begin()
{
    m_before = editorMemory();
    m_current = std::make_unique<QWebEngineProfile>(); // without a name it is off the record
    m_current->setHttpCacheType(QWebEngineProfile::NoCache);
    m_current->setPersistentCookiesPolicy(QWebEngineProfile::NoPersistentCookies);
    installPageSchemes(*m_current, m_requests);
    connect(m_current.get(), &QWebEngineProfile::downloadRequested, this,
        [this](QWebEngineDownloadRequest *download) {
            download->cancel();
            emit downloadAsked(download->url());
        });
}

void PageProfiles::retire()
{
    m_retired.push_back(std::move(m_current));
    QTimer::singleShot(timeToSettle, this, [this] { m_retired.erase(m_retired.begin()); });
}

} // namespace kevra
