// SPDX-License-Identifier: GPL-3.0-or-later
#include "songlist/MainLook.h"

#include "platform/text/Text.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

QString categoryCaption(const ListView &view, const ListFacts &facts)
{
    if (!facts.soughtText.isEmpty())
        return u"Searching for \""_s + facts.soughtText + u"\"..."_s;
    if (view.kind == ListKind::Find)
        return u"Records containing "_s + view.text;
    return view.kind == ListKind::Duplicates ? view.text : view.category.name;
}

QString filterMessage(const ListView &view)
{
    switch (view.kind) {
    // Hidden then, with its own caption.
    case ListKind::AllSongs:
    case ListKind::Filter:
        return u"Filter is limiting records displayed."_s;
    case ListKind::PlayList:
        return u"PlayList:"_s + view.text;
    case ListKind::Findings:
        return view.text;
    case ListKind::InvalidFiles:
        return u"Records with invalid path/file names"_s;
    case ListKind::SelectedOnly:
        return u"Showing selected records only."_s;
    case ListKind::HidingSelected:
        return u"Hiding selected records."_s;
    case ListKind::Category:
    case ListKind::Find:
    case ListKind::Artist:
    case ListKind::Returning:
    case ListKind::Duplicates:
    case ListKind::Unnamed:
        break;
    }
    return {};
}

QString artistCaption(const ListView &view, const ListFacts &facts)
{
    if (view.leadsBack)
        return u"Return from artist filter"_s;
    if (view.kind == ListKind::Returning)
        return u"Returning"_s;
    if (!isGreaterThanBlank(facts.artist))
        return {};
    return u"Show all songs by "_s + ReplaceText(facts.artist, u"&"_s, u"&&"_s);
}

} // namespace

MainLook lookOf(const ListView &view, const ListFacts &facts)
{
    using enum MainControl;
    MainLook look;
    look.lblCategory = categoryCaption(view, facts);
    look.lblFilterMsg = filterMessage(view);
    look.cmdShowArtistSongs = artistCaption(view, facts);

    const bool marksWait = view.kind != ListKind::SelectedOnly || view.areMarksChanged;
    look.shown.setFlag(lblFilterMsg, view.kind != ListKind::AllSongs && !look.lblFilterMsg.isEmpty());
    look.shown.setFlag(cmdShowArtistSongs, facts.hasRows && !look.cmdShowArtistSongs.isEmpty());
    look.shown.setFlag(cmdShowSelected, facts.SelectedCount > 0 && marksWait);

    look.enabled.setFlag(cmdAdd, view.mayAdd && !facts.isAdding);
    for (const MainControl control : {cmdEdit, cmdDelete, cmdExit})
        look.enabled.setFlag(control, !facts.isAdding);
    for (const MainControl control : {cmdPlay, cmdPlayAll})
        look.enabled.setFlag(control, facts.hasRows);
    for (const MainControl control : {File, AddMenu, FindEditMenu, cmdShowArtistSongs, cmdFilter, cmdFind,
                                      cmbSort, cmdSortSong, cmdSortArtist})
        look.enabled.setFlag(control, view.mayCompose);
    return look;
}

} // namespace quaverly
