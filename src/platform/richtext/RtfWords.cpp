// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/richtext/RtfWords.h"

#include "platform/richtext/RichText.h"
#include "platform/richtext/RtfState.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace richtext {

namespace {

using A = Action;
using Align = ParagraphState::Align;

struct Entry
{
    std::string_view name;
    Word word;
};

constexpr Entry Entries[] = {
    {"plain", {A::Plain}},
    {"b", {A::Bold}},
    {"i", {A::Italic}},
    {"ul", {A::Underline, 1}},
    {"uld", {A::Underline, 1}},
    {"uldash", {A::Underline, 1}},
    {"uldb", {A::Underline, 1}},
    {"ulth", {A::Underline, 1}},
    {"ulw", {A::Underline, 1}},
    {"ulwave", {A::Underline, 1}},
    {"ulnone", {A::Underline, 0}},
    {"strike", {A::StrikeOut}},
    {"striked", {A::StrikeOut}},
    {"v", {A::Hidden}},
    {"super", {A::Script, 1}},
    {"sub", {A::Script, -1}},
    {"nosupersub", {A::Script, 0}},
    {"up", {A::Raised, 1}},
    {"dn", {A::Raised, -1}},
    {"f", {A::Font}},
    {"fs", {A::FontSize}},
    {"cf", {A::Color}},
    {"cb", {A::Background}},
    {"chcbpat", {A::Background}},
    {"highlight", {A::Background}},
    {"pard", {A::NewParagraphStyle}},
    {"ql", {A::Align, static_cast<int>(Align::Left)}},
    {"qc", {A::Align, static_cast<int>(Align::Centre)}},
    {"qr", {A::Align, static_cast<int>(Align::Right)}},
    {"qj", {A::Align, static_cast<int>(Align::Justify)}},
    {"li", {A::LeftIndent}},
    {"ri", {A::RightIndent}},
    {"fi", {A::FirstLine}},
    {"sb", {A::SpaceBefore}},
    {"sa", {A::SpaceAfter}},
    {"pagebb", {A::BreakBefore}},
    {"ls", {A::List}},
    {"tab", {A::Character, u'\t'}},
    {"line", {A::Character, 0x2028}},
    {"lbr", {A::Character, 0x2028}},
    {"page", {A::Character, PageBreak}},
    {"emdash", {A::Character, 0x2014}},
    {"endash", {A::Character, 0x2013}},
    {"lquote", {A::Character, 0x2018}},
    {"rquote", {A::Character, 0x2019}},
    {"ldblquote", {A::Character, 0x201C}},
    {"rdblquote", {A::Character, 0x201D}},
    {"bullet", {A::Character, 0x2022}},
    {"emspace", {A::Character, 0x2003}},
    {"enspace", {A::Character, 0x2002}},
    {"qmspace", {A::Character, 0x2005}},
    {"zwj", {A::Character, 0x200D}},
    {"zwnj", {A::Character, 0x200C}},
    {"ltrmark", {A::Character, 0x200E}},
    {"rtlmark", {A::Character, 0x200F}},
    {"~", {A::Character, 0x00A0}},
    {"-", {A::Character, 0x00AD}},
    {"_", {A::Character, 0x2011}},
    {"par", {A::EndParagraph}},
    {"sect", {A::EndParagraph}},
    {"cell", {A::Cell}},
    {"nestcell", {A::Cell}},
    {"row", {A::Row}},
    {"nestrow", {A::Row}},
    {"chpgn", {A::Made}},
    {"chdate", {A::Made}},
    {"chtime", {A::Made}},
    {"sectnum", {A::Made}},
    {"u", {A::Unicode}},
    {"uc", {A::UnicodeSkip}},
    {"bin", {A::RawBytes}},
    {"shppict", {A::Enter}},
    {"ud", {A::Enter}},
    {"shptxt", {A::Enter}},
    {"cs", {A::Enter}},
    {"shpinst", {A::EnterAndLose}},
    {"do", {A::EnterAndLose}},
    {"footnote", {A::EnterAndLose}},
    {"listtext", {A::EnterListText}},
    {"pntext", {A::EnterListText}},
    {"upr", {A::SkipFirstGroup}},
    {"pn", {A::SkipListItem}},
    {"stylesheet", {A::Skip}},
    {"info", {A::Skip}},
    {"filetbl", {A::Skip}},
    {"listtable", {A::Skip}},
    {"listoverridetable", {A::Skip}},
    {"revtbl", {A::Skip}},
    {"rsidtbl", {A::Skip}},
    {"nonshppict", {A::Skip}},
    {"nonesttables", {A::Skip}},
    {"nesttableprops", {A::Skip}},
    {"shprslt", {A::Skip}},
    {"sp", {A::Skip}},
    {"bkmkstart", {A::Skip}},
    {"bkmkend", {A::Skip}},
    {"objclass", {A::Skip}},
    {"annotation", {A::SkipAndLose}},
    {"fldinst", {A::SkipAndLose}},
    {"footer", {A::SkipAndLose}},
    {"footerf", {A::SkipAndLose}},
    {"footerl", {A::SkipAndLose}},
    {"footerr", {A::SkipAndLose}},
    {"header", {A::SkipAndLose}},
    {"headerf", {A::SkipAndLose}},
    {"headerl", {A::SkipAndLose}},
    {"headerr", {A::SkipAndLose}},
    {"objdata", {A::SkipAndLose}},
    {"tc", {A::SkipAndLose}},
    {"tcn", {A::SkipAndLose}},
    {"xe", {A::SkipAndLose}},
    {"fonttbl", {A::Fonts}},
    {"colortbl", {A::Colors}},
    {"pict", {A::Picture}},
    {"ansicpg", {A::DocumentCodePage}},
    {"mac", {A::FixedCodePage, 10000}},
    {"pc", {A::FixedCodePage, 437}},
    {"pca", {A::FixedCodePage, 850}},
    {"deff", {A::DefaultFont}},
    {"fcharset", {A::FontCharset}},
    {"cpg", {A::FontCodePage}},
    {"red", {A::Red}},
    {"green", {A::Green}},
    {"blue", {A::Blue}},
};

/** What only says how the file was made or what else is known of it, in groups marked as left to who knows.
 */
constexpr std::string_view WithoutText[] = {"aftncn",
                                            "aftnsep",
                                            "aftnsepc",
                                            "atnauthor",
                                            "atndate",
                                            "atnicn",
                                            "atnid",
                                            "atnparent",
                                            "atnref",
                                            "atntime",
                                            "atrfend",
                                            "atrfstart",
                                            "background",
                                            "blipuid",
                                            "category",
                                            "colorschememapping",
                                            "company",
                                            "datafield",
                                            "datastore",
                                            "defchp",
                                            "defpap",
                                            "doccomm",
                                            "docvar",
                                            "expandedcolortbl",
                                            "factoidname",
                                            "falt",
                                            "fchars",
                                            "fldtype",
                                            "fname",
                                            "fontemb",
                                            "fontfile",
                                            "ftncn",
                                            "ftnsep",
                                            "ftnsepc",
                                            "generator",
                                            "gridtbl",
                                            "hlinkbase",
                                            "htmltag",
                                            "keycode",
                                            "latentstyles",
                                            "lchars",
                                            "listname",
                                            "listpicture",
                                            "listtag",
                                            "lsdlockedexcept",
                                            "mailmerge",
                                            "manager",
                                            "mhtmltag",
                                            "mmathPr",
                                            "nextfile",
                                            "objalias",
                                            "objname",
                                            "objsect",
                                            "objtime",
                                            "oldcprops",
                                            "oldpprops",
                                            "oldsprops",
                                            "oldtprops",
                                            "oleclsid",
                                            "panose",
                                            "password",
                                            "passwordhash",
                                            "pgdsctbl",
                                            "pgptbl",
                                            "picprop",
                                            "pnseclvl",
                                            "private",
                                            "propname",
                                            "protend",
                                            "protstart",
                                            "protusertbl",
                                            "rdf",
                                            "rxe",
                                            "saveprevpict",
                                            "sn",
                                            "staticval",
                                            "sv",
                                            "svb",
                                            "template",
                                            "themedata",
                                            "txe",
                                            "userprops",
                                            "wgrffmtfilter",
                                            "windowcaption",
                                            "writereservation",
                                            "writereservhash",
                                            "xmlattrname",
                                            "xmlattrvalue",
                                            "xmlclose",
                                            "xmlname",
                                            "xmlnstbl",
                                            "xmlopen"};

std::string_view viewOf(QByteArrayView name)
{
    return {name.data(), static_cast<std::size_t>(name.size())};
}

} // namespace

Part partOf(Action action)
{
    switch (action) {
    case A::None:
        return Part::None;
    case A::Plain:
    case A::Bold:
    case A::Italic:
    case A::Underline:
    case A::StrikeOut:
    case A::Hidden:
    case A::Script:
    case A::Raised:
    case A::Font:
    case A::FontSize:
    case A::Color:
    case A::Background:
        return Part::Character;
    case A::NewParagraphStyle:
    case A::Align:
    case A::LeftIndent:
    case A::RightIndent:
    case A::FirstLine:
    case A::SpaceBefore:
    case A::SpaceAfter:
    case A::BreakBefore:
    case A::List:
        return Part::Paragraph;
    case A::Character:
    case A::EndParagraph:
    case A::Cell:
    case A::Row:
    case A::Made:
    case A::Unicode:
    case A::UnicodeSkip:
    case A::RawBytes:
        return Part::Text;
    case A::Enter:
    case A::EnterAndLose:
    case A::EnterListText:
    case A::Skip:
    case A::SkipListItem:
    case A::SkipAndLose:
    case A::SkipFirstGroup:
    case A::Fonts:
    case A::Colors:
    case A::Picture:
        return Part::Group;
    case A::DocumentCodePage:
    case A::FixedCodePage:
    case A::DefaultFont:
    case A::FontCharset:
    case A::FontCodePage:
    case A::Red:
    case A::Green:
    case A::Blue:
        return Part::File;
    }
    return Part::None;
}

Word wordOf(QByteArrayView name)
{
    static const auto sorted = [] {
        auto entries = std::to_array(Entries);
        std::ranges::sort(entries, {}, &Entry::name);
        return entries;
    }();
    const std::string_view wanted = viewOf(name);
    const auto *const found = std::ranges::lower_bound(sorted, wanted, {}, &Entry::name);
    return found != sorted.end() && found->name == wanted ? found->word : Word{};
}

bool holdsNoText(QByteArrayView name)
{
    return std::ranges::binary_search(WithoutText, viewOf(name));
}

} // namespace richtext
