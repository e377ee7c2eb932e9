#pragma once
#include <QString>
#include <stdexcept>

namespace tesorel
{

// Error numbers that callers look at. They keep the numbers the
// program's users and its error log have always seen.
namespace err
{
constexpr int ReturnWithoutGosub = 3;
constexpr int InvalidCall = 5; // invalid procedure call or argument
constexpr int Overflow = 6;
constexpr int SubscriptOutOfRange = 9;
constexpr int DivisionByZero = 11;
constexpr int TypeMismatch = 13;
constexpr int FileNotFound = 53;
constexpr int ObjectNotSet = 91;
constexpr int InvalidUseOfNull = 94;
constexpr int NoCurrentRecord = 3021;
constexpr int DatabaseFileNotFound = 3024; // the base file cannot be found
constexpr int SyntaxError = 3075;          // syntax error in a statement
constexpr int EngineError = 3000;          // any other failure of the engine
} // namespace err

// A run-time failure: what the error routine logs and what a guarded
// procedure skips.
class RuntimeError : public std::runtime_error
{
  public:
    RuntimeError(int number, const QString &description)
        : std::runtime_error(description.toStdString()), number_(number), description_(description)
    {
    }
    int number() const { return number_; }
    const QString &description() const { return description_; }

  private:
    int number_;
    QString description_;
};

} // namespace tesorel
