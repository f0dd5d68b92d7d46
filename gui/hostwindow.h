// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QMainWindow>

// The window host: a menu of every form and frame of the package, each opened as a module of
// the suite would open it.
class HostWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit HostWindow(const QString &database, QWidget *parent = nullptr);

private:
    // A document chosen in the browser of the search paths.
    void chooseDocument();
    // The icon selection, its choice shown with its picture.
    void chooseSymbol();
    // The symbols view in a window of its own, with the language of its texts to choose.
    void showSymbols();
};
