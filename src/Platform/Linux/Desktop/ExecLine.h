#pragma once

#include <QString>
#include <QStringList>

namespace tolvar {

/// The arguments of an Exec value whose string escapes are resolved already: quoting removed,
/// field codes left out, "%%" read as "%". Single quotes and backslashes outside of quotes count as
/// a shell's do: the Desktop Entry Specification forbids them, but they are common.
QStringList execArguments(const QString& exec);

/// The base name of the program that these arguments start in the end, behind wrappers such as
/// "env NAME=value", "sh -c", "flatpak run" and "snap run"; empty when there is none. A Flatpak
/// that does not tell its command is named by its application id.
QString startedProgram(QStringList arguments);

/// `program` quoted as the one argument of an Exec value; string escapes are not applied yet.
QString quotedForExec(const QString& program);

} // namespace tolvar
