// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "BenchArchive.h"

#include "archive/Archive.h"

#include <QFile>
#include <QHash>
#include <QTemporaryDir>
#include <QtGlobal>

using namespace Qt::StringLiterals;

namespace {

// Answers the message of the upgrade only.
class UpgradeQuestions : public Questions {
public:
    using Questions::ask;
    Answer ask(const QString&, MessageStyle, const QString&) override { return Answer::Ok; }
};

void fill(const QString& path, int memos)
{
    UpgradeQuestions questions;
    const SystemClock clock;
    Archive archive(questions, clock);
    archive.setPath(path);
    UpdateArchiveVersion(archive);
    ArchiveUnit unit(archive);
    jet::Connection::Transaction transaction(unit.connection());
    const QString code =
        QString(20, u'x') + u"\nfor (int i = 0; i < count; ++i) { total += values[i]; }"_s.repeated(17);
    for (int i = 0; i < memos; ++i) {
        jet::Recordset row = unit.Open(u"SELECT * FROM tab_memo where 1=2 "_s);
        row.AddNew({u"categoryID"_s, u"memoTypeID"_s, u"memoName"_s, u"snipVale"_s, u"memoNotes"_s, u"dateIn"_s,
                    u"dateLastMod"_s, u"openingState"_s},
                   {qint64(1), qint64(3), u"Memo number "_s + QString::number(i), QString::number(i) + code, QString(),
                    clock.now().addSecs(-i), clock.now(), qint64(0)});
        row.Update();
    }
    transaction.commit();
}

} // namespace

Answer NoQuestions::ask(const QString& text, MessageStyle, const QString&)
{
    qFatal("asked: %s", qPrintable(text));
}

QString archiveWith(int memos)
{
    static QTemporaryDir folder;
    static QHash<int, QString> made;
    QString& path = made[memos];
    if (path.isEmpty()) {
        path = folder.filePath(QString::number(memos) + u".SVA"_s);
        if (!QFile::copy(QStringLiteral(SHIPPED_DIR "/snipvale.SVA"), path))
            qFatal("the shipped archive is not built");
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
        fill(path, memos);
    }
    return path;
}
