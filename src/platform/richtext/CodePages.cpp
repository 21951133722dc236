// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/richtext/CodePages.h"

#include <algorithm>
#include <iterator>

namespace richtext {

namespace {

struct Charset
{
    int charset;
    int codePage;
};

constexpr Charset Charsets[] = {
    {0, 1252},   {2, SymbolCodePage}, {77, 10000}, {78, 932},   {79, 949},   {80, 936},
    {81, 950},   {83, 10005},         {84, 10004}, {85, 10006}, {86, 10081}, {87, 874},
    {88, 10029}, {89, 10007},         {128, 932},  {129, 949},  {130, 1361}, {134, 936},
    {136, 950},  {161, 1253},         {162, 1254}, {163, 1258}, {177, 1255}, {178, 1256},
    {186, 1257}, {204, 1251},         {222, 874},  {238, 1250}, {254, 437},  {255, 850},
};

struct Named
{
    int codePage;
    const char *name;
};

/** Those whose names don't follow from their numbers. */
constexpr Named Names[] = {
    {437, "ibm-437"},         {708, "ISO-8859-6"},       {850, "ibm-850"},
    {852, "ibm-852"},         {866, "ibm-866"},          {10000, "macintosh"},
    {10001, "windows-932"},   {10004, "windows-1256"},   {10005, "windows-1255"},
    {10006, "x-mac-greek"},   {10007, "x-mac-cyrillic"}, {10029, "x-mac-centraleurroman"},
    {10081, "x-mac-turkish"}, {20866, "KOI8-R"},         {65001, "UTF-8"},
};

QStringDecoder decoderOf(int codePage)
{
    // Stateless: a character cut off at the end is wrong, not still to come.
    constexpr auto flag = QStringDecoder::Flag::Stateless;
    const auto *known = std::ranges::find(Names, codePage, &Named::codePage);
    const QByteArray name =
        known != std::end(Names) ? QByteArray(known->name) : "windows-" + QByteArray::number(codePage);
    QStringDecoder decoder(name.constData(), flag);
    return decoder.isValid() ? std::move(decoder) : QStringDecoder("windows-1252", flag);
}

/** Of the symbol font only the bullet is met in practice; letters look like themselves. */
QString symbols(QByteArrayView bytes)
{
    QString text = QString::fromLatin1(bytes);
    return text.replace(QChar(0xB7), QChar(0x2022));
}

} // namespace

int codePageOfCharset(int charset, int documents)
{
    const auto *known = std::ranges::find(Charsets, charset, &Charset::charset);
    return known != std::end(Charsets) ? known->codePage : documents;
}

QString CodePages::decode(QByteArrayView bytes, int codePage)
{
    const bool ascii = std::ranges::all_of(bytes, [](char c) { return static_cast<signed char>(c) >= 0; });
    if (ascii)
        return QString::fromLatin1(bytes);
    if (codePage == SymbolCodePage)
        return symbols(bytes);
    auto decoder = m_decoders.find(codePage);
    if (decoder == m_decoders.end())
        decoder = m_decoders.emplace(codePage, decoderOf(codePage)).first;
    if (!decoder->second.isValid())
        return QString::fromLatin1(bytes);
    return decoder->second.decode(bytes);
}

} // namespace richtext
