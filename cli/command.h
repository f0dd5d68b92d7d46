#pragma once

#include <QJsonValue>
#include <QString>
#include <QStringList>
#include <functional>

// What every sub-command gets: its arguments after the name, and the global options.
struct CliContext
{
    QStringList args;
    QString database;
    bool json = false;
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
};

// A wrong call of a sub-command: printed with its usage, exit code 2.
struct CliUsageError
{
    QString message;
};

// The registered sub-commands, in the order of the help text.
QList<CliCommand> &cliCommands();
void registerCommand(CliCommand command);

// Registered by each group's source file.
void registerRegistryCommands();
void registerSysCommands();
