// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_export.h>

#include <QFrame>

class TCEdit;
class TCSqlQuery;

// The address frame that record masks embed: postcode, town, street and house number. Each
// field's pick list comes from the street directory "Orte", narrowed by what the other fields
// hold, and a field that no longer fits the one above it is cleared. Values go into the
// statements as typed (a quote breaks the statement); database errors pass through.
class KXCOMMON_EXPORT TfrmPlzOrtStrasse : public QFrame
{
    Q_OBJECT

public:
    explicit TfrmPlzOrtStrasse(QWidget *parent = nullptr);

    TCEdit *Strasse;
    TCEdit *Plz;
    TCEdit *Ort;
    TCEdit *Hausnummer;
    TCSqlQuery *DataQuery;

    // Lays the fields out, switches their pick lists to the handlers and the look-up on. The
    // embedding mask calls it once it has bound the edits.
    void Loaded();
    bool LookupActive() const { return m_active; }

    // Fills Edit's pick list: an empty entry, then the distinct values of Field in "Orte" under
    // up to two equality conditions (a condition with an empty value is left out).
    void AddItems(TCEdit *Edit, const QString &Field, const QString &Cond1Field, const QString &Cond1Value,
                  const QString &Cond2Field, const QString &Cond2Value);

    void PlzEnter(QObject *sender);
    void PlzChanged(QObject *sender);
    void PlzAfterSelect(QObject *sender);
    void OrtEnter(QObject *sender);
    void OrtChanged(QObject *sender);
    void OrtAfterSelect(QObject *sender);
    void StrasseEnter(QObject *sender);
    void HausnummerEnter(QObject *sender);

private:
    // Clears the street (and its house number) when the directory's first street for the
    // postcode and town is not the one entered.
    void checkStreet();

    bool m_active = false;
};
