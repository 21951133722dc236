// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <vector>

class QDialog;

namespace quaverly {

/**
 * Walks through the program as a user does and saves its screens as PNG files named after them, saying Yes
 * and OK to each message on the way.
 */
class Screenshots final : public QObject
{
    Q_OBJECT

public:
    /**
     * @p musicFolder is added to the catalogue first, and the walk goes through all main screens; without one
     * it shows the list and changes nothing. @p finished is told whether every screen came.
     */
    Screenshots(QString folder, QString musicFolder, std::function<void(bool)> finished);

    void start();

protected:
    /** The scan's window is there too shortly to be waited for. */
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /** A window to wait for, the picture's name or nothing, and what is done there. */
    struct Stop
    {
        QString window;
        QString picture;
        std::function<void(QWidget &)> act;
    };

    void visitMusic();
    void visitPlayLists();
    void step();
    [[nodiscard]] QWidget *windowOf(const Stop &stop) const;
    [[nodiscard]] bool isOnTheWay(const QString &window) const;
    void answer(QDialog &dialog);
    void save(QWidget &window, const QString &name);

    QString m_folder;
    QString m_musicFolder;
    std::function<void(bool)> m_finished;
    std::vector<Stop> m_stops;
    std::size_t m_next = 0;
    int m_quietSteps = 0;
    int m_waitedSteps = 0;
};

} // namespace quaverly
