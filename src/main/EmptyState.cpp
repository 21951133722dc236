// SPDX-License-Identifier: GPL-3.0-or-later
#include "main/EmptyState.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace quaverly {

EmptyState::EmptyState(QWidget *parent)
    : QWidget(parent), m_text(new QLabel(this)), m_button(new QPushButton(this))
{
    m_button->setObjectName(u"cmdEmptyState"_s);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_text, 0, Qt::AlignCenter);
    layout->addWidget(m_button, 0, Qt::AlignCenter);
    connect(m_button, &QPushButton::clicked, this, &EmptyState::button_Click);
    setCatalogueEmpty(true);
}

void EmptyState::setCatalogueEmpty(bool empty)
{
    m_catalogueEmpty = empty;
    m_text->setText(empty ? tr("There are no songs here yet.  Add a folder of music to begin.")
                          : tr("No songs to show."));
    m_button->setText(empty ? tr("Add a Folder of Music Files ...") : tr("Show All"));
}

void EmptyState::button_Click()
{
    if (m_catalogueEmpty)
        Q_EMIT addFolderWanted();
    else
        Q_EMIT showAllWanted();
}

} // namespace quaverly
