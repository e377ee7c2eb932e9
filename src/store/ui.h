#pragma once
#include <QString>
#include <QStringList>
#include <deque>
#include <vector>

namespace tesorel
{

// Message box styles and answers, with the values the program has always used.
namespace mb
{
constexpr int OkOnly = 0, OkCancel = 1, AbortRetryIgnore = 2, YesNoCancel = 3, YesNo = 4, RetryCancel = 5;
constexpr int Critical = 16, Question = 32, Exclamation = 48, Information = 64;
constexpr int Ok = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7;
} // namespace mb

// What the logic asks of the person in front of it. The desktop answers
// with real dialogs; tests script the answers and read what was shown.
class Ui
{
  public:
    virtual ~Ui() = default;
    virtual int MsgBox(const QString &prompt, int style = mb::OkOnly, const QString &title = {}) = 0;
    // The text typed, or "" when the box was cancelled.
    virtual QString InputBox(const QString &prompt, const QString &title = {}, const QString &deflt = {}) = 0;
    virtual void Beep() = 0;
    // Hands an address or a file to the desktop (browser, mail client).
    virtual bool OpenUrl(const QString &address) = 0;
    // Lets pending events run inside a long loop.
    virtual void DoEvents() = 0;
    // Ends the program at once (the Abort of the error dialog, NoHay).
    virtual void EndProgram() = 0;
};

// A Ui for tests: answers come from a queue, everything shown is kept.
class ScriptedUi : public Ui
{
  public:
    struct Shown {
        QString prompt;
        int style;
        QString title;
    };

    std::deque<int> answers;     // MsgBox answers; Ok when empty
    std::deque<QString> inputs;  // InputBox texts; "" when empty
    std::vector<Shown> messages; // every MsgBox and InputBox, in order
    QStringList opened;          // every OpenUrl
    int beeps = 0;
    int eventsYielded = 0;
    bool ended = false;

    int MsgBox(const QString &prompt, int style, const QString &title) override;
    QString InputBox(const QString &prompt, const QString &title, const QString &deflt) override;
    void Beep() override { ++beeps; }
    bool OpenUrl(const QString &address) override;
    void DoEvents() override { ++eventsYielded; }
    void EndProgram() override { ended = true; }
};

} // namespace tesorel
