#pragma once
#include <QHash>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <functional>

namespace tesorel
{

// The main window's commands by name. Each window or routine that belongs
// to its own subsystem registers itself here, so the main window does not
// depend on them; an unregistered command does nothing. Controls that do
// the same thing (a button, a menu entry and a popup entry) lead to one name.
class Comandos
{
  public:
    using Manejador = std::function<QVariant()>;

    // Registers or replaces the handler of a command.
    void registrar(const QString &nombre, std::function<void()> manejador);
    // The same for a command that answers with a value (qualquier_valor).
    void registrarConResultado(const QString &nombre, Manejador manejador);
    bool registrado(const QString &nombre) const;

    // The command that a control runs: its shared name, the control's own,
    // or "" (comando::Ninguno) for an entry that does nothing by design.
    static QString comandoDe(const QString &control);
    // Every control of the alias table.
    static QStringList controles();

    // Runs the command of a control or a command by name; an invalid
    // QVariant when nothing answers.
    QVariant ejecutar(const QString &controlOComando) const;

  private:
    QHash<QString, Manejador> manejadores_;
};

} // namespace tesorel
