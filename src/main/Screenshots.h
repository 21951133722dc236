// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

#include <functional>

namespace quaverly {

class NameList;

/**
 * Saves the screens as PNG files named after them, pressing the default button of each message on the
 * way, and then calls `finished`.
 */
class Screenshots final : public QObject
{
    Q_OBJECT

public:
    Screenshots(QString folder, std::function<NameList *()> mainScreen, std::function<void()> finished);

    void start();

private:
    void step();
    void save(QWidget &window, const QString &name);

    QString m_folder;
    std::function<NameList *()> m_mainScreen;
    std::function<void()> m_finished;
    int m_quietSteps = 0;
    bool m_aboutAsked = false;
};

} // namespace quaverly
