#include "store/ui.h"

namespace tesorel
{

int ScriptedUi::MsgBox(const QString &prompt, int style, const QString &title)
{
    messages.push_back({prompt, style, title});
    if (answers.empty())
        return mb::Ok;
    const int answer = answers.front();
    answers.pop_front();
    return answer;
}

QString ScriptedUi::InputBox(const QString &prompt, const QString &title, const QString &)
{
    messages.push_back({prompt, -1, title});
    if (inputs.empty())
        return {};
    QString text = inputs.front();
    inputs.pop_front();
    return text;
}

bool ScriptedUi::OpenUrl(const QString &address)
{
    opened << address;
    return true;
}

} // namespace tesorel
