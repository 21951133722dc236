// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/richtext/RtfReader.h"

#include <algorithm>

namespace richtext {

namespace {

/** Nobody writes deeper; what stands deeper is read without its own formats. */
constexpr std::size_t DeepestGroup = 500;
constexpr qsizetype LongestRun = 1 << 20;

} // namespace

RtfReader::RtfReader(QByteArrayView rtf, QTextDocument &document)
    : m_lexer(rtf), m_builder(document, m_tables)
{}

Reading RtfReader::read()
{
    m_groups.reserve(DeepestGroup);
    ParagraphState last;
    do {
        const Token token = m_lexer.next();
        if (token.kind == Token::Kind::End || m_builder.isFull()) {
            m_reading.isWhole = false;
            break;
        }
        if (isOpen())
            last = group().paragraph;
        take(token);
    } while (isOpen());
    flush();
    m_builder.finish(isOpen() ? group().paragraph : last);
    m_reading.isWhole = m_reading.isWhole && !m_builder.hasDamagedPictures();
    return m_reading;
}

void RtfReader::take(const Token &token)
{
    m_opened = std::exchange(m_opening, token.kind == Token::Kind::Open);
    switch (token.kind) {
    case Token::Kind::Open:
        open();
        break;
    case Token::Kind::Close:
        close();
        break;
    case Token::Kind::Word:
        word(token);
        break;
    case Token::Kind::Byte:
        byte(static_cast<char>(*token.number));
        break;
    case Token::Kind::Text:
        text(token.text);
        break;
    case Token::Kind::End:
        break;
    }
}

void RtfReader::open()
{
    // What stands for a Unicode character ends with its group at the latest, however much is told to skip.
    m_fallback = 0;
    m_starred = false;
    if (m_groups.size() >= DeepestGroup) {
        ++m_deeper;
        return;
    }
    Group inner = isOpen() ? group() : Group();
    if (isOpen() && std::exchange(group().skipsNextGroup, false))
        inner.target = Target::Nothing;
    inner.skipsNextGroup = false;
    m_groups.push_back(inner);
}

void RtfReader::close()
{
    m_fallback = 0;
    m_starred = false;
    if (m_deeper > 0) {
        --m_deeper;
        return;
    }
    flush();
    const Target ended = group().target;
    m_groups.pop_back();
    if (ended == Target::Fonts)
        endFont();
    if (ended == Target::Picture && isOpen() && group().target != Target::Picture)
        endPicture();
}

void RtfReader::text(QByteArrayView bytes)
{
    m_starred = false;
    const qsizetype skipped = std::min<qsizetype>(m_fallback, bytes.size());
    m_fallback -= static_cast<int>(skipped);
    bytes = bytes.sliced(skipped);
    switch (group().target) {
    case Target::Text:
        m_bytes.append(bytes);
        if (m_bytes.size() > LongestRun)
            flush();
        break;
    case Target::Fonts:
        fontText(bytes);
        break;
    case Target::Colors:
        colorText(bytes);
        break;
    case Target::Picture:
        pictureText(bytes);
        break;
    case Target::Nothing:
        break;
    }
}

void RtfReader::byte(char value)
{
    if (group().target == Target::Picture)
        return;
    text(QByteArrayView(&value, 1));
}

void RtfReader::word(const Token &token)
{
    // Elsewhere than behind a brace it means nothing.
    if (token.text == "*") {
        m_starred = m_opened;
        return;
    }
    const bool starred = std::exchange(m_starred, false);
    const Word word = wordOf(token.text);
    if (word.action == Action::RawBytes) {
        const QByteArrayView raw = m_lexer.takeBytes(token.number.value_or(0));
        if (group().target == Target::Picture)
            m_pictureBytes.append(raw);
        return;
    }
    if (starred && word.action == Action::None)
        skip(group().target == Target::Text && !holdsNoText(token.text));
    switch (group().target) {
    case Target::Text:
        inText(word, token.number);
        break;
    case Target::Fonts:
        inFonts(word, token.number.value_or(0));
        break;
    case Target::Colors:
        inColors(word, token.number.value_or(0));
        break;
    case Target::Picture:
        inPicture(token);
        break;
    case Target::Nothing:
        break;
    }
}

// The group holds what only other readers know of; with that, a part of the text may be left out.
void RtfReader::skip(bool loses)
{
    // So deep, what follows the group is skipped as well.
    if (loses || m_deeper > 0)
        m_reading.keepsAll = false;
    group().target = Target::Nothing;
}

void RtfReader::inText(const Word &word, std::optional<int> number)
{
    switch (partOf(word.action)) {
    case Part::None:
        break;
    case Part::Character:
        flush();
        change(group().character, word, number);
        break;
    case Part::Paragraph:
        change(group().paragraph, word, number.value_or(0));
        break;
    case Part::Text:
        insert(word, number.value_or(1));
        break;
    case Part::Group:
        beginTarget(word.action);
        break;
    case Part::File:
        document(word, number.value_or(0));
        break;
    }
}

void RtfReader::insert(const Word &word, int number)
{
    if (word.action == Action::UnicodeSkip) {
        group().unicodeSkip = std::max(number, 0);
        return;
    }
    // A symbol may stand for a Unicode character as well.
    if (m_fallback > 0 && word.action == Action::Character && word.value != PageBreak) {
        --m_fallback;
        return;
    }
    flush();
    switch (word.action) {
    case Action::Character:
        append(static_cast<char16_t>(word.value));
        break;
    case Action::Unicode:
        unicode(number);
        break;
    case Action::Made:
        m_reading.keepsAll = false;
        break;
    case Action::Cell:
        m_reading.keepsAll = false;
        append(u'\t');
        break;
    case Action::Row:
    case Action::EndParagraph:
        endParagraph();
        break;
    default:
        break;
    }
}

void RtfReader::endParagraph()
{
    // Its number or bullet is for the reader to make.
    const bool hasListText = std::exchange(m_hasListText, false);
    if (group().paragraph.isListItem && !hasListText)
        m_reading.keepsAll = false;
    m_builder.endParagraph(group().paragraph);
}

void RtfReader::beginTarget(Action action)
{
    flush();
    switch (action) {
    case Action::EnterAndLose:
        m_reading.keepsAll = false;
        break;
    case Action::EnterListText:
        m_hasListText = true;
        break;
    case Action::SkipListItem:
        if (m_groups.size() > 1)
            m_groups[m_groups.size() - 2].paragraph.isListItem = true;
        skip(false);
        break;
    case Action::SkipAndLose:
        skip(true);
        break;
    case Action::Skip:
        skip(false);
        break;
    case Action::SkipFirstGroup:
        group().skipsNextGroup = true;
        break;
    case Action::Fonts:
        group().target = Target::Fonts;
        break;
    case Action::Colors:
        group().target = Target::Colors;
        break;
    case Action::Picture:
        group().target = Target::Picture;
        break;
    default:
        break;
    }
}

void RtfReader::document(const Word &word, int number)
{
    switch (word.action) {
    case Action::DocumentCodePage:
        m_codePage = number > 0 ? number : m_codePage;
        break;
    case Action::FixedCodePage:
        m_codePage = word.value;
        break;
    case Action::DefaultFont:
        m_tables.defaultFont = number;
        break;
    default:
        break;
    }
}

void RtfReader::unicode(int number)
{
    append(static_cast<char16_t>(number & 0xFFFF));
    m_fallback = group().unicodeSkip;
}

void RtfReader::append(char16_t character)
{
    const QChar c(character);
    if (group().character.hidden)
        m_reading.keepsAll = false;
    else
        m_builder.append(QStringView(&c, 1), group().character);
}

void RtfReader::flush()
{
    if (m_bytes.isEmpty() || !isOpen())
        return;
    if (group().character.hidden)
        m_reading.keepsAll = false;
    else
        m_builder.append(m_codePages.decode(m_bytes, codePage()), group().character);
    m_bytes.clear();
}

// Bytes are of their font's code page; only fonts that name none are of the document's.
int RtfReader::codePage() const
{
    const int number = m_groups.back().character.font;
    const FontEntry font = m_tables.fonts.value(number < 0 ? m_tables.defaultFont : number);
    if (font.codePage > 0)
        return font.codePage;
    return codePageOfCharset(font.charset, m_codePage);
}

} // namespace richtext
