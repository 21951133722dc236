// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/store/FakeMainScreen.h"

using namespace Qt::StringLiterals;

namespace quaverly::test {

FakeMainScreen::FakeMainScreen(DisplayedSet *set) : m_set(set)
{
    if (m_set == nullptr)
        return;
    m_set->setScreen(this);
    m_set->Data1().addListener(*this);
}

FakeMainScreen::~FakeMainScreen()
{
    if (m_set == nullptr)
        return;
    m_set->Data1().removeListener(*this);
    m_set->setScreen(nullptr);
}

void FakeMainScreen::set_cmbSort(const QString &label)
{
    m_cmbSort = label;
    cmbSort_Click();
}

void FakeMainScreen::cmdSortArtist_Click()
{
    m_firstColumn = u"Artist"_s;
    set_cmbSort(u"Artist"_s);
}

void FakeMainScreen::cmdSortSong_Click()
{
    m_firstColumn = u"SongName"_s;
    set_cmbSort(u"Song Name"_s);
}

void FakeMainScreen::ShowAllMenu_Click()
{
    ++showAlls;
    if (m_set != nullptr)
        m_set->ShowAllMenu_Click();
}

} // namespace quaverly::test
