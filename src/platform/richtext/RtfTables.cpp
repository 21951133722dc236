// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/richtext/RtfReader.h"

#include "platform/text/Twips.h"

// What a file says beside its text: fonts, colours and the bytes of pictures.
namespace richtext {

namespace {

constexpr qsizetype MostEntries = 5'000;
constexpr qsizetype LongestFontName = 256;
constexpr qsizetype MostPictureWords = 1'000;
/** All pictures of a file together. */
constexpr qsizetype MostPictureBytes = 64 << 20;
constexpr int LargestGoal = 100'000;

} // namespace

void RtfReader::inFonts(const Word &word, int number)
{
    switch (word.action) {
    case Action::Font:
        endFont();
        m_fontNumber = number;
        break;
    case Action::FontCharset:
        m_font.charset = number;
        break;
    case Action::FontCodePage:
        m_font.codePage = number;
        break;
    case Action::UnicodeSkip:
        group().unicodeSkip = std::max(number, 0);
        break;
    case Action::Unicode:
        takeFontName();
        if (m_font.family.size() < LongestFontName)
            m_font.family += QChar(static_cast<char16_t>(number & 0xFFFF));
        m_fallback = group().unicodeSkip;
        break;
    default:
        if (partOf(word.action) == Part::Group)
            group().target = Target::Nothing;
    }
}

void RtfReader::fontText(QByteArrayView bytes)
{
    for (const char c : bytes) {
        if (c == ';')
            endFont();
        else if (m_fontName.size() < LongestFontName)
            m_fontName.append(c);
    }
}

void RtfReader::endFont()
{
    takeFontName();
    m_font.family =
        m_font.family.removeIf([](QChar c) { return c.unicode() < 0x20 || c == u';'; }).simplified();
    if (m_fontNumber >= 0 && m_tables.fonts.size() < MostEntries)
        m_tables.fonts.insert(m_fontNumber, m_font);
    m_fontNumber = -1;
    m_font = {};
}

void RtfReader::takeFontName()
{
    const int page = m_font.codePage > 0 ? m_font.codePage : codePageOfCharset(m_font.charset, m_codePage);
    if (m_font.family.size() < LongestFontName)
        m_font.family += m_codePages.decode(m_fontName, page == SymbolCodePage ? WesternCodePage : page);
    m_fontName.clear();
}

void RtfReader::inColors(const Word &word, int number)
{
    const int part = std::clamp(number, 0, 255);
    if (word.action != Action::Red && word.action != Action::Green && word.action != Action::Blue)
        return;
    if (!m_color.isValid())
        m_color = Qt::black;
    if (word.action == Action::Red)
        m_color.setRed(part);
    else if (word.action == Action::Green)
        m_color.setGreen(part);
    else
        m_color.setBlue(part);
}

void RtfReader::colorText(QByteArrayView bytes)
{
    for (const char c : bytes) {
        if (c != ';')
            continue;
        if (m_tables.colors.size() < MostEntries)
            m_tables.colors.append(m_color);
        m_color = {};
    }
}

void RtfReader::inPicture(const Token &token)
{
    const int number = std::clamp(token.number.value_or(0), 0, LargestGoal);
    if (token.text == "picwgoal")
        m_pictureGoal.setWidth(number);
    else if (token.text == "pichgoal")
        m_pictureGoal.setHeight(number);
    else if (token.text == "picscalex")
        m_pictureScale.setWidth(number);
    else if (token.text == "picscaley")
        m_pictureScale.setHeight(number);
    const bool isSymbol = !QChar::isLetter(static_cast<uchar>(token.text.front())) || token.text.front() < 0;
    if (isSymbol || m_pictureWords.size() > MostPictureWords)
        return;
    m_pictureWords += '\\' + token.text.toByteArray();
    if (token.number)
        m_pictureWords += QByteArray::number(*token.number);
}

void RtfReader::pictureText(QByteArrayView bytes)
{
    if (m_allPictures + m_pictureBytes.size() > MostPictureBytes) {
        m_reading.isWhole = false;
        return;
    }
    for (const char c : bytes) {
        const int digit = hexDigit(c);
        if (digit < 0)
            continue;
        if (m_halfByte >= 0)
            m_pictureBytes.append(static_cast<char>(m_halfByte * 16 + digit));
        m_halfByte = m_halfByte < 0 ? digit : -1;
    }
}

void RtfReader::endPicture()
{
    const auto pixels = [](int twips, int percent) {
        return qRound(twips * (percent > 0 ? percent : 100) / 100.0 / quaverly::TwipsPerPixel);
    };
    m_allPictures += m_pictureBytes.size();
    if (!m_pictureBytes.isEmpty()) {
        const QSize shown(pixels(m_pictureGoal.width(), m_pictureScale.width()),
                          pixels(m_pictureGoal.height(), m_pictureScale.height()));
        m_builder.addPicture({m_pictureWords, m_pictureBytes, shown}, group().character);
    }
    m_pictureWords.clear();
    m_pictureBytes.clear();
    m_pictureGoal = m_pictureScale = {};
    m_halfByte = -1;
}

} // namespace richtext
