// SPDX-License-Identifier: LGPL-2.1-or-later
// The document editor's record actions beyond the list's own: save and open the record, print,
// export and copy its list.
#include "docmodicommon.h"

#include "documentlauncher.h"
#include "kxerror.h"
#include "msgdlg.h"
#include "tcfiledialog.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QPdfWriter>
#include <QTextDocument>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

void TDocModiCommonForm::SaveRecord()
{
    saveChangedRows();
}

void TDocModiCommonForm::OpenRecord()
{
    bool changed = false;
    for (int i = 0; i < RowCount() && !changed; ++i)
        changed = Row(i).Value(ModiMark) == u"1"_s;
    if (changed
        && MsgDlg(u"Die Änderungen an den Dokumenten dieses Datensatzes sind nicht gespeichert. Verwerfen und neu laden?"_s,
                  TMsgDlgType::mtConfirmation, mbYesNo)
               != mrYes)
        return;
    LoadDocuments(m_parentId);
}

QList<QStringList> TDocModiCommonForm::listCells() const
{
    QList<QStringList> cells{ {} };
    for (int c = 0; c < DokumentList->columnCount(); ++c)
        cells.front() << DokumentList->headerItem()->text(c);
    for (int r = 0; r < RowCount(); ++r) {
        QStringList &row = cells.emplace_back();
        for (int c = 0; c < DokumentList->columnCount(); ++c)
            row << DokumentList->topLevelItem(r)->text(c);
    }
    return cells;
}

QString TDocModiCommonForm::ListText(QChar Separator) const
{
    QStringList lines;
    for (QStringList row : listCells()) {
        // A separator or line break inside a value would split it into two cells or lines.
        for (QString &cell : row)
            cell.replace(Separator, u' ').replace(u'\n', u' ').remove(u'\r');
        lines << row.join(Separator);
    }
    return lines.join(u"\r\n"_s) + u"\r\n"_s;
}

void TDocModiCommonForm::PrintList()
{
    QString html = u"<h3>Dokumente</h3><table border=\"1\" cellspacing=\"0\" cellpadding=\"3\">"_s;
    const QList<QStringList> cells = listCells();
    for (qsizetype r = 0; r < cells.size(); ++r) {
        const QString tag = r == 0 ? u"th"_s : u"td"_s; // the first row is the header
        html += u"<tr>"_s;
        for (const QString &cell : cells[r])
            html += u"<%1>%2</%1>"_s.arg(tag, cell.toHtmlEscaped());
        html += u"</tr>"_s;
    }
    html += u"</table>"_s;
    const QString file = QDir::temp().filePath(u"Dokumente %1.pdf"_s.arg(QString(m_parentId).replace(u'/', u'_')));
    {
        QPdfWriter writer(file);
        writer.setTitle(u"Dokumente"_s);
        QTextDocument document;
        document.setHtml(html);
        document.print(&writer);
    }
    if (documentLauncher().OpenFile(file, QDir::tempPath()) <= 32)
        MsgDlg(u"Die Liste wurde als %1 geschrieben; kein Programm öffnet sie zum Drucken."_s.arg(file),
               TMsgDlgType::mtWarning, mbOK);
}

void TDocModiCommonForm::ExportList(const QString &File)
{
    QString file = File;
    if (file.isEmpty()) {
        TCFileDialog dialog(TCFileDialog::Save, this);
        dialog.SetHandle(this);
        dialog.Filter = u"CSV Datei|*.csv"_s;
        dialog.DefaultExt = u"csv"_s;
        dialog.FileName = u"Dokumente.csv"_s;
        if (!dialog.Execute())
            return;
        file = dialog.FileName;
    }
    QFile out(file);
    if (!out.open(QIODevice::WriteOnly | QIODevice::Truncate) || out.write(ListText(u';').toUtf8()) < 0 || !out.flush())
        throw kx::Error(u"Die Datei %1 lässt sich nicht schreiben: %2"_s.arg(file, out.errorString()));
}

void TDocModiCommonForm::CopyList()
{
    QApplication::clipboard()->setText(ListText(u'\t'));
}
