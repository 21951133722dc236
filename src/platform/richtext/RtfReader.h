// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/richtext/CodePages.h"
#include "platform/richtext/DocumentBuilder.h"
#include "platform/richtext/RichText.h"
#include "platform/richtext/RtfLexer.h"
#include "platform/richtext/RtfWords.h"

#include <vector>

namespace richtext {

/** Reads one file, word by word, into a document. */
class RtfReader final
{
public:
    RtfReader(QByteArrayView rtf, QTextDocument &document);

    [[nodiscard]] Reading read();

private:
    enum class Target { Text, Nothing, Fonts, Colors, Picture };

    /** What a closing brace gives back. */
    struct Group
    {
        CharState character;
        ParagraphState paragraph;
        Target target = Target::Text;
        /** Characters that stand behind a Unicode one for older readers. */
        int unicodeSkip = 1;
        bool skipsNextGroup = false;
    };

    [[nodiscard]] bool isOpen() const { return !m_groups.empty(); }
    [[nodiscard]] Group &group() { return m_groups.back(); }
    void take(const Token &token);
    void open();
    void close();
    void text(QByteArrayView bytes);
    void byte(char value);
    void word(const Token &token);
    void inText(const Word &word, std::optional<int> number);
    void beginTarget(Action action);
    void skip(bool loses);
    void insert(const Word &word, int number);
    void endParagraph();
    void document(const Word &word, int number);

    void unicode(int number);
    void append(char16_t character);
    /** Text bytes so far, in the code page of their font. */
    void flush();
    [[nodiscard]] int codePage() const;

    void inFonts(const Word &word, int number);
    void fontText(QByteArrayView bytes);
    /** The bytes of the name so far. */
    void takeFontName();
    void endFont();
    void inColors(const Word &word, int number);
    void colorText(QByteArrayView bytes);
    void inPicture(const Token &token);
    void pictureText(QByteArrayView bytes);
    void endPicture();

    RtfLexer m_lexer;
    Tables m_tables;
    DocumentBuilder m_builder;
    CodePages m_codePages;
    Reading m_reading;
    std::vector<Group> m_groups;
    /** Groups inside the deepest one that is kept apart; they share its state. */
    qsizetype m_deeper = 0;
    int m_codePage = WesternCodePage;
    QByteArray m_bytes;
    /** How much of the text is still an older reader's. */
    int m_fallback = 0;
    /** The token now, or the one before, is an opening brace. */
    bool m_opening = false;
    bool m_opened = false;
    bool m_starred = false;
    /** The paragraph so far has its number or bullet as text. */
    bool m_hasListText = false;

    int m_fontNumber = -1;
    FontEntry m_font;
    QByteArray m_fontName;
    QColor m_color;
    QByteArray m_pictureWords;
    QByteArray m_pictureBytes;
    QSize m_pictureGoal;
    QSize m_pictureScale;
    int m_halfByte = -1;
    qsizetype m_allPictures = 0;
};

} // namespace richtext
