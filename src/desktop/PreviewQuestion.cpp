// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/PreviewQuestion.h"

namespace quaverly {

bool isConfirmed(Desktop &desktop, const Question &question, const std::function<Preview &()> &preview)
{
    const Answer answer =
        desktop.MessageWithMore(question.text, question.title, question.icon, question.buttons,
                                question.defaultAnswer, QString::fromUtf16(ShowChangesCaption));
    if (answer != Answer::More)
        return answer == Answer::Yes || answer == Answer::Ok;
    Preview *made = nullptr;
    {
        const Hourglass hourglass(desktop);
        made = &preview();
    }
    return desktop.ShowPreview(*made);
}

} // namespace quaverly
