#pragma once
#include "store/ui.h"

namespace tesorel
{

// The person's side of the program on the desktop: Qt dialogs.
class DesktopUi : public Ui
{
  public:
    int MsgBox(const QString &prompt, int style = mb::OkOnly, const QString &title = {}) override;
    QString InputBox(const QString &prompt, const QString &title = {}, const QString &deflt = {}) override;
    void Beep() override;
    bool OpenUrl(const QString &address) override;
    void DoEvents() override;
    // Ends the process at once, as the old End did: no window gets to
    // close and nothing more is saved.
    void EndProgram() override;
};

} // namespace tesorel
