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
    static const QHash<QString, qint32> byEnding = {{u"cpp"_s, 3},    {u"h"_s, 3},   {u"ui"_s, 5},  {u"py"_s, 2},
                                                    {u"json"_s, 120}, {u"md"_s, 98}, {u"css"_s, 38}};
    return file.fileName() == "CMakeLists.txt"_L1 ? 80 : byEnding.value(file.suffix());
}

int stylesIn(ScintillaView& view)
{
    QSet<std::intptr_t> styles;
    const auto length = view.text().size();
    view.SendScintilla(QsciScintillaBase::SCI_COLOURISE, 0UL, long(-1));
    for (qsizetype at = 0; at < length; ++at)
        styles.insert(view.SendScintilla(QsciScintillaBase::SCI_GETSTYLEAT, static_cast<unsigned long>(at)));
    return int(styles.size());
}

} // namespace

// What a new user does: puts the files of a project in. Each must come back as it was and open coloured.
class tst_SourceFiles : public QObject {
    Q_OBJECT
private slots:
    void allOfOurs();
};

void tst_SourceFiles::allOfOurs()
{
    UiFixture f;
    ScintillaView view;
    cScintilla editor(view, f.archive);
    view.setHandler(&editor);
    editor.Init();
    QHash<qint32, int> languages;
    QDirIterator all(QStringLiteral(SOURCE_DIR "/src"), QDir::Files, QDirIterator::Subdirectories);
    while (all.hasNext()) {
        QFile file(all.next());
        cMemo memo(f.archive);
        memo.CategoryID = 1;
        memo.MemoTypeID = languageOf(QFileInfo(file));
        if (memo.MemoTypeID == 0)
            continue;
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        memo.SnipVale = QString::fromUtf8(bytes);
        QVERIFY(memo.Save());
        memo.SnipVale.clear();
        QVERIFY(memo.Load());
        view.setText(memo.SnipVale.toUtf8());
        editor.SetLexer(memo.MemoTypeID);
        QCOMPARE(view.text(), bytes);
        QVERIFY2(stylesIn(view) >= 3, qPrintable(file.fileName()));
        ++languages[memo.MemoTypeID];
    }
    QVERIFY(languages.size() >= 3 && languages.value(3) > 100);
    view.setHandler(nullptr);
}

SNIPVALE_TEST(tst_SourceFiles)
#include "tst_SourceFiles.moc"
