// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

namespace quaverly {

/** What stands in the middle of a list without songs: what to do next, in a sentence and a button. */
class EmptyState final : public QWidget
{
    Q_OBJECT

public:
    explicit EmptyState(QWidget *parent = nullptr);

    /** Whether there are no songs at all, or only none to show. */
    void setCatalogueEmpty(bool empty);

Q_SIGNALS:
    void addFolderWanted();
    void showAllWanted();

private:
    void button_Click();

    QLabel *m_text;
    QPushButton *m_button;
    bool m_catalogueEmpty = true;
};

} // namespace quaverly
