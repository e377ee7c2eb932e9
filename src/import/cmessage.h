#pragma once
#include <QString>
#include <memory>
#include <vector>

#include "core/runtime_error.h"

namespace tesorel
{

// A failure raised by an object, with the object and routine that raised it.
class ErrorDeObjeto : public RuntimeError
{
  public:
    ErrorDeObjeto(int number, const QString &source, const QString &description)
        : RuntimeError(number, description), source_(source)
    {
    }
    const QString &source() const { return source_; }

  private:
    QString source_;
};

// One mail message, parsed from the text a POP3 server sent for it.
class CMessage
{
  public:
    // The object-error number that a text without an empty line raises.
    static constexpr int ErrorFormato = -2147220891; // &H80040265

    // Headers, body and the known header fields of `text`. Throws
    // ErrorDeObjeto "Invalid message format" when no empty line ends the headers.
    void CreateFromText(const QString &text);
    // Kept for the callers that expect it; it does nothing.
    void CombineMessage() {}

    int Size() const { return int(MessageText.size()); }

    QString Headers, MessageBody, MessageText, Encrypted, Comments, Keywords, References, InReplyTo, BCC, CC,
        Sender, ReplyTo, Subject, From, MessageTo, MessageID, SendDate, Received, ReturnPath;

  private:
    QString *campo(const QString &nombre);
};

// The messages of one retrieval, in the order they came. The key given to
// Add is not kept: two messages of one identifier live side by side.
class CMessages
{
  public:
    using Lista = std::vector<std::shared_ptr<CMessage>>;

    std::shared_ptr<CMessage> Add(std::shared_ptr<CMessage> message, const QString &key = {});
    // From 1, as the collection counts; throws error 9 outside 1..Count.
    std::shared_ptr<CMessage> Item(int index) const;
    int Count() const { return int(lista_.size()); }
    void Remove(int index);

    Lista::const_iterator begin() const { return lista_.begin(); }
    Lista::const_iterator end() const { return lista_.end(); }

  private:
    Lista lista_;
};

} // namespace tesorel
