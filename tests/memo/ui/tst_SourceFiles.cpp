// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "support/UiSupport.h"

#include "memo/cMemo.h"
#include "memo/code/cScintilla.h"
#include "memo/code/ui/ScintillaView.h"

#include <QDirIterator>
#include <QSet>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

qint32 languageOf(const QFileInfo& file)
{
    static const QHash<QString, qint32> byEnding = {
        {u"cpp"_s, 3},    {u"h"_s, 3},   {u"ui"_s, 5},   {u"sql"_s, 7},  {u"py"_s, 2},    {u"sh"_s, 62},
        {u"json"_s, 120}, {u"md"_s, 98}, {u"yml"_s, 48}, {u"css"_s, 38}, {u"js"_s, 2003}, {u"java"_s, 1003}};
    if (file.fileName() == "CMakeLists.txt"_L1 || file.suffix() == "cmake"_L1)
        return 80;
    return byEnding.value(file.suffix());
}

QList<QFileInfo> sourceFiles()
{
    QList<QFileInfo> files;
    for (const char* folder : {"/src", "/tests", "/tools", "/cmake", "/data", "/bench", "/fuzz", "/docs"}) {
        QDirIterator all(QStringLiteral(SOURCE_DIR) + QString::fromLatin1(folder), QDir::Files,
                         QDirIterator::Subdirectories);
        while (all.hasNext()) {
            const QFileInfo file(all.next());
            if (languageOf(file) && file.size() > 0)
                files.append(file);
        }
    }
    return files;
}

int stylesIn(ScintillaView& view)
{
    QSet<std::intptr_t> styles;
    const std::intptr_t length = view.send(SCI.GETLENGTH);
    view.SendScintilla(QsciScintillaBase::SCI_COLOURISE, 0UL, long(-1));
    for (std::intptr_t at = 0; at < length; ++at)
        styles.insert(view.SendScintilla(QsciScintillaBase::SCI_GETSTYLEAT, static_cast<unsigned long>(at)));
    return int(styles.size());
}

} // namespace

// What a new user does: puts the files of a project in. Each must come back as it was and open coloured.
class tst_SourceFiles : public QObject {
    Q_OBJECT
private slots:
    void twoHundredFiles();
};

void tst_SourceFiles::twoHundredFiles()
{
    UiFixture f;
    ScintillaView view;
    cScintilla editor(view, f.archive);
    view.setHandler(&editor);
    editor.Init();
    const QList<QFileInfo> files = sourceFiles();
    QVERIFY2(files.size() >= 200, qPrintable(u"only %1 files"_s.arg(files.size())));
    QSet<qint32> languages;
    for (const QFileInfo& info : files) {
        QFile file(info.filePath());
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        cMemo memo(f.archive);
        memo.CategoryID = 1;
        memo.MemoTypeID = languageOf(info);
        memo.MemoName = info.fileName();
        memo.SnipVale = QString::fromUtf8(bytes);
        QVERIFY(memo.Save());

        cMemo read(f.archive);
        read.MemoID = memo.MemoID;
        QVERIFY(read.Load());
        QCOMPARE(read.SnipVale.toUtf8(), bytes);
        view.setText(read.SnipVale.toUtf8());
        editor.SetLexer(read.MemoTypeID);
        QCOMPARE(view.text(), bytes);
        QVERIFY2(stylesIn(view) >= 3, qPrintable(info.filePath()));
        languages.insert(memo.MemoTypeID);
    }
    QVERIFY(languages.size() >= 4);
    view.setHandler(nullptr);
}

SNIPVALE_TEST(tst_SourceFiles)
#include "tst_SourceFiles.moc"
