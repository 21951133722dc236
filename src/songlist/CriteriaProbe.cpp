// SPDX-License-Identifier: GPL-3.0-or-later
#include "songlist/CriteriaProbe.h"

#include "catalogue/Catalogue.h"
#include "platform/store/ReadProbe.h"
#include "songlist/CriteriaText.h"
#include "songlist/ListTexts.h"

#include <future>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr std::chrono::milliseconds Pause(300);
constexpr std::chrono::milliseconds BetweenLooks(50);

/** Neither of the two when the count was ended. */
struct Verdict
{
    std::optional<qint64> songs;
    QString refusal;
};

/** Places count from the start of what the user typed, not of the statement around it. */
QString faultIn(const QString &criteria, const dao::DaoError &error)
{
    if (error.number != dao::SyntaxError)
        return error.description;
    const QString condition = conditionOf(criteria);
    try {
        dao::ReadProbe::checkSyntax(condition);
    } catch (const dao::DaoError &nearer) {
        return nearer.description;
    }
    return condition.size() < criteria.size() ? u"Syntax error in the order of the criteria."_s
                                              : u"Syntax error in the criteria."_s;
}

/** One that can't be read is left to the store, which has the whole statement to judge by. */
void requireComparisons(const QString &criteria)
{
    const QString condition = conditionOf(criteria);
    try {
        dao::ReadProbe::checkSyntax(condition);
    } catch (const dao::DaoError &) {
        return;
    }
    dao::ReadProbe::checkComparisons(condition);
}

Verdict judge(dao::ReadProbe &store, const QString &statement, const QString &criteria,
              const std::stop_token &stop)
{
    try {
        requireComparisons(criteria);
    } catch (const dao::DaoError &error) {
        return {std::nullopt, error.description};
    }
    try {
        return {store.count(statement, stop), {}};
    } catch (const dao::DaoError &error) {
        return {std::nullopt, faultIn(criteria, error)};
    } catch (const std::exception &error) {
        return {std::nullopt, QString::fromUtf8(error.what())};
    }
}

} // namespace

CriteriaProbe::CriteriaProbe(Catalogue &catalogue, const ListTexts &texts, QObject *parent)
    : QObject(parent), m_catalogue(catalogue), m_texts(texts), m_pause(this), m_thread(this)
{
    m_pause.setSingleShot(true);
    m_pause.setInterval(Pause);
    m_thread.setMaxThreadCount(1);
    connect(&m_pause, &QTimer::timeout, this, &CriteriaProbe::pause_Timeout);
}

CriteriaProbe::~CriteriaProbe()
{
    m_stop.request_stop();
    m_thread.waitForDone();
}

void CriteriaProbe::setCriteria(const QString &criteria)
{
    m_stop.request_stop();
    m_criteria = criteria;
    if (hasCriteria(criteria))
        m_pause.start();
    else
        m_pause.stop();
}

std::shared_ptr<dao::ReadProbe> CriteriaProbe::store()
{
    if (!m_store && m_catalogue.CatalogueDb)
        m_store = m_catalogue.CatalogueDb->probe();
    return m_store;
}

std::optional<dao::ReadRows> CriteriaProbe::read(const QString &criteria, const std::function<bool()> &goesOn)
{
    setCriteria({});
    if (!store())
        return std::nullopt;
    ListTexts texts = m_texts;
    m_stop = std::stop_source();
    const auto reading = std::make_shared<std::packaged_task<std::optional<dao::ReadRows>()>>(
        [store = m_store, statement = composeFilter(texts, criteria), criteria, stop = m_stop.get_token()] {
            requireComparisons(criteria);
            return store->rows(statement, stop);
        });
    auto rows = reading->get_future();
    m_thread.start([reading] { (*reading)(); });
    while (rows.wait_for(BetweenLooks) != std::future_status::ready) {
        if (goesOn())
            continue;
        m_stop.request_stop();
        return std::nullopt;
    }
    return rows.get();
}

void CriteriaProbe::pause_Timeout()
{
    try {
        static_cast<void>(store());
    } catch (const dao::DaoError &error) {
        Q_EMIT refused(error.description);
    }
    if (!m_store)
        return;
    ListTexts texts = m_texts;
    const QString statement = composeFilter(texts, m_criteria);
    m_stop = std::stop_source();
    m_thread.start([this, store = m_store, statement, criteria = m_criteria, stop = m_stop.get_token()] {
        const Verdict verdict = judge(*store, statement, criteria, stop);
        QMetaObject::invokeMethod(
            this,
            [this, verdict, stop] {
                if (stop.stop_requested())
                    return;
                if (verdict.songs)
                    Q_EMIT counted(*verdict.songs);
                else if (!verdict.refusal.isEmpty())
                    Q_EMIT refused(verdict.refusal);
            },
            Qt::QueuedConnection);
    });
}

} // namespace quaverly
