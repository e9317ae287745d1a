// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/richtext/RichTextBox.h"
#include "ui/richtext/RtfSamples.h"

// Shown, because only a shown and active box takes keys as it does for a user.
struct Shown {
    explicit Shown(const QString& stored = {}) : edits(&box, &RichTextBox::edited)
    {
        box.resize(400, 200);
        box.setRtf(stored);
        box.show();
        QVERIFY(QTest::qWaitForWindowActive(&box));
        box.setFocus();
    }
    void select(int from, int to)
    {
        QTextCursor cursor = box.textCursor();
        cursor.setPosition(from);
        cursor.setPosition(to, QTextCursor::KeepAnchor);
        box.setTextCursor(cursor);
    }
    void key(int k, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&box, Qt::Key(k), modifiers); }
    QString looks() const { return describe(*box.document()); }

    RichTextBox box;
    QSignalSpy edits;
};
