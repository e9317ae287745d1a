// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QWidget>

// The place of the code editor in its window, and the buffer through which the code travels between editor and
// record. Text goes through unchanged, whatever it holds.
class CodeHost : public QWidget {
    Q_OBJECT
public:
    explicit CodeHost(QWidget* parent = nullptr);
    void host(QWidget* editor); // takes it; it fills this widget from now on
    QString text() const { return m_text; }
    void setText(const QString& text);

private:
    QString m_text;
};
