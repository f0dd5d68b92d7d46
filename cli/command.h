// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QHash>
#include <QJsonValue>
#include <QString>
#include <QStringList>
#include <functional>

// What every sub-command gets: its arguments after the name, and the global options.
struct CliContext
{
    QStringList args;
    int optionsEnd = 0; // args from this index on came after "--": never options
    QString database;
    bool json = false;
    bool verbose = false;
};

// A sub-command returns its result as JSON (printed with --json) and its text (printed without).
struct CliOutput
{
    QJsonValue json;
    QString text;
};

struct CliCommand
{
    QString name;    // "modules", "modules add"
    QString usage;   // argument synopsis
    QString summary; // one line, German
    std::function<CliOutput(const CliContext &)> run;
    bool needsDatabase = true;
    // The tables the command reads or writes, each with the command that creates it; checked
    // before anything is written.
    QList<std::pair<QString, QString>> tables;
    // The options and their valid values, for the command's own --help.
    QString details;
    // The command draws pictures, opens documents with the desktop's programs or keeps forms:
    // it runs in a widgets application.
    bool graphics = false;
};

// A wrong call of a sub-command: printed with its usage, exit code 2.
struct CliUsageError
{
    QString message;
};

// The registered sub-commands, in the order of the help text.
QList<CliCommand> &cliCommands();
void registerCommand(CliCommand command);
// Adds the tables a registered command needs (see CliCommand::tables) and its help details.
void cliRequire(const QString &command, const QList<std::pair<QString, QString>> &tables);
void cliDetails(const QString &command, const QString &details);
// Marks registered commands as needing a widgets application (see CliCommand::graphics).
void cliGraphics(const QStringList &commands);

// A call that is well formed but wrong for the data (an unknown article, a document without
// lines): a German message, exit code 1.
struct CliInputError
{
    QString message;
};

// Registered by each group's source file.
void registerRegistryCommands();
void registerSysCommands();
void registerStockCommands();
void registerDispatchCommands();
void registerKatsCommands();
void registerTenantCommands();
void registerImportCommands();
void registerSymbolsCommands();
void registerDocumentCommands();

// The options and positional arguments of a sub-command. "--name value" for the named valued
// options, "--name" for the flags; everything else, and all after "--", is positional.
// A number in German ("2,5") or plain ("2.5") writing; a usage error names What.
double cliNumber(const QString &text, const QString &what);
// A whole number in the 32-bit range; a usage error names What.
int cliWholeNumber(const QString &text, const QString &what);
// A whole number in the 64-bit range (article, document and module numbers); a usage error names What.
qint64 cliLargeNumber(const QString &text, const QString &what);
// A text for JSON output: null for "none" (the empty text).
QJsonValue cliTextOrNull(const QString &text);
// An amount for text output: two decimals with the format settings' decimal separator.
QString cliAmount(double value);
// "1 Zeile", "2 Zeilen": the count with the noun in the number it needs.
QString cliCount(qint64 count, const QString &one, const QString &many);

// A sub-command "... init [--sample]": creates the tables, with --sample adds the sample data too.
CliOutput cliInitTables(const CliContext &context, const std::function<void()> &create,
                        const std::function<void()> &addSample, const QString &createdText, const QString &sampleText);

class CliArguments
{
public:
    CliArguments(const CliContext &context, const QStringList &valued, const QStringList &flags);
    QString value(const QString &name, const QString &fallback = {}) const { return m_values.value(name, fallback); }
    bool has(const QString &name) const { return m_values.contains(name) || m_flags.contains(name); }
    const QStringList &positional() const { return m_positional; }
    // The positional arguments, which must be between Min and Max.
    const QStringList &positional(int min, int max, const QString &what) const;
    // The positional arguments, which must be exactly Count.
    const QStringList &positional(int count, const QString &what) const;

private:
    QHash<QString, QString> m_values;
    QStringList m_flags;
    QStringList m_positional;
};
