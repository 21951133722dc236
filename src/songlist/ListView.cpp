// SPDX-License-Identifier: GPL-3.0-or-later
#include "songlist/ListView.h"

namespace quaverly {

ListView viewAfter(const ListView &before, ListView next)
{
    next.mayAdd = before.mayAdd;
    next.mayCompose = before.mayCompose;
    next.leadsBack = false;
    switch (next.kind) {
    case ListKind::AllSongs:
    case ListKind::Category:
        next.mayAdd = next.mayCompose = true;
        break;
    case ListKind::Filter:
        next.category = before.category;
        break;
    case ListKind::Find:
        next.mayAdd = false;
        break;
    case ListKind::Artist:
        next.mayAdd = false;
        next.leadsBack = true;
        break;
    case ListKind::InvalidFiles:
    case ListKind::Findings:
        next.mayAdd = false;
        next.leadsBack = before.leadsBack;
        next.category.number = before.category.number;
        break;
    case ListKind::SelectedOnly:
        next.mayAdd = false;
        next.leadsBack = before.leadsBack;
        break;
    case ListKind::HidingSelected:
        next.leadsBack = before.leadsBack;
        next.category = before.category;
        break;
    case ListKind::Duplicates:
        next.mayAdd = next.mayCompose = false;
        break;
    case ListKind::Unnamed:
        next.leadsBack = before.leadsBack;
        break;
    case ListKind::PlayList:
    case ListKind::Returning:
        break;
    }
    return next;
}

} // namespace quaverly
