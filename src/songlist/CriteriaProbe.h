// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QThreadPool>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>
#include <stop_token>

namespace dao {
class ReadProbe;
class ReadRows;
} // namespace dao

namespace quaverly {

struct Catalogue;
struct ListTexts;

/**
 * Says, while a criteria text is being typed, how many songs it would show. It waits for a short
 * pause in the typing and counts on a thread of its own, one text at a time: the next key ends a
 * count that is under way. Its end waits for that thread, which has then nothing left to do.
 */
class CriteriaProbe final : public QObject
{
    Q_OBJECT

public:
    /** @p texts are those of the displayed set, with the category in force. */
    CriteriaProbe(Catalogue &catalogue, const ListTexts &texts, QObject *parent = nullptr);
    ~CriteriaProbe() override;

    /** A blank text is not counted. */
    void setCriteria(const QString &criteria);
    /**
     * The rows that the criteria would show, read on the same thread; a count is ended first. Asks @p goesOn
     * while that takes its time, some twenty times a second: nothing once it says no.
     * @throws dao::DaoError as opening the list would.
     */
    [[nodiscard]] std::optional<dao::ReadRows> read(const QString &criteria,
                                                    const std::function<bool()> &goesOn);

Q_SIGNALS:
    /** The songs that the text set last would show. */
    void counted(qint64 songs);
    /** Why the store would refuse it, with the place of the fault in it. */
    void refused(const QString &text);

private:
    void pause_Timeout();
    /** Null while no catalogue is open. */
    [[nodiscard]] std::shared_ptr<dao::ReadProbe> store();

    Catalogue &m_catalogue;
    const ListTexts &m_texts;
    QString m_criteria;
    QTimer m_pause;
    QThreadPool m_thread;
    std::stop_source m_stop;
    std::shared_ptr<dao::ReadProbe> m_store;
};

} // namespace quaverly
