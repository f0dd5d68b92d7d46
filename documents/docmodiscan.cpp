// SPDX-License-Identifier: LGPL-2.1-or-later
// The document editor's scan: one page from the configured scanner into a JPEG file, guarded by
// the busy flag that every workstation sees.
#include "docmodicommon.h"

#include "docsavecommon.h"
#include "globals.h"
#include "inifile.h"
#include "kxerror.h"
#include "log.h"
#include "msgdlg.h"
#include "parameter.h"
#include "scanner.h"
#include "tcedit.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

const QString resNoScanner = u"Bitte stellen Sie unter System\\Einstellungen\\System einen Scanner ein."_s; // 65513
const QString resScannerInUse = u"Scanner ist wird bereits benutzt!"_s;                                    // 65512
const QString resNoScanNow = u"Scannen im Moment nicht möglich."_s;                                         // 65511
constexpr int jpegQuality = 50; // the value the scan passes for the JPEG picture: its quality

} // namespace

void TDocModiCommonForm::ToolButton3Click()
{
    const QString scanner = TCIniFile(cDatabaseIni).ReadString(u"System"_s, u"Scanner"_s, u"-1"_s);
    if (scanner == u"-1"_s || scanner.trimmed().isEmpty()) {
        MsgDlg(resNoScanner, TMsgDlgType::mtInformation, mbOK);
        return;
    }
    if (Parameter->Read(u"Scanner"_s, u"isScanning"_s, u"0"_s) == u"1"_s) {
        MsgDlg(resScannerInUse + u'\r' + resNoScanNow, TMsgDlgType::mtInformation, mbOK);
        return;
    }
    try {
        Parameter->Write(u"Scanner"_s, u"isScanning"_s, u"1"_s);
        const std::unique_ptr<TScannerSession> twain = scannerFactory()();
        twain->LoadTwainModule();
        twain->OpenSourceManager();
        const QStringList sources = twain->GetSources();
        twain->CloseTwainSession();
        twain->UnLoadTwainModule();
        if (!sources.contains(scanner)) {
            MsgDlg(resNoScanner, TMsgDlgType::mtInformation, mbOK);
            Parameter->Write(u"Scanner"_s, u"isScanning"_s, u"0"_s);
            return;
        }
        twain->LoadTwainModule();
        twain->OpenSourceManager();
        twain->SelectSource(scanner);
        twain->OpenSource();
        const QByteArray image = twain->AcquireJpg(jpegQuality);
        twain->CloseTwainSession();
        twain->UnLoadTwainModule();
        Parameter->Write(u"Scanner"_s, u"isScanning"_s, u"0"_s);
        QString path;
        if (SaveCommonDocument(path)) {
            const QFileInfo target(path);
            path = target.path() + u'/' + target.completeBaseName() + u".jpg"_s;
            Dokumente->setText(path);
            QFile out(path);
            if (!out.open(QIODevice::WriteOnly) || out.write(image) != image.size())
                throw kx::Error(u"Die Datei %1 lässt sich nicht schreiben: %2"_s.arg(path, out.errorString()));
        }
    } catch (const std::exception &e) {
        const auto *error = dynamic_cast<const kx::Error *>(&e);
        writeErrorLog(kxLogDocuments(), u"TDocModiCommonForm.ToolButton3Click: "_s + (error ? error->message() : QString::fromLocal8Bit(e.what())));
        Parameter->Write(u"Scanner"_s, u"isScanning"_s, u"0"_s);
    }
}
