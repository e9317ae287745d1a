// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
// ChangeVictim ARCHIVE OLD NEW: says on standard output that it begins, changes the master password, and waits for
// somebody to kill it.
#include "archive/Archive.h"
#include "desktop/Clock.h"
#include "desktop/Questions.h"
#include "vault/cBlowfish.h"
#include "vault/modPassword.h"

#include <cstdio>
#include <unistd.h>

namespace {

class Silence : public Questions {
public:
    Answer ask(const QString&, MessageStyle, const QString&) override { return Answer::Ok; }
};

} // namespace

int main(int count, char** arguments)
{
    if (count != 4)
        return 2;
    Silence questions;
    SystemClock clock;
    Archive archive(questions, clock);
    archive.setPath(QString::fromLocal8Bit(arguments[1]));
    cBlowfish cipher;
    modPassword passwords(archive, cipher);
    passwords.setStoredText(passwords.ReadMasterPwd());
    if (!passwords.Unlock(QString::fromLatin1(arguments[2])))
        return 3;
    std::puts("ready");
    std::fflush(stdout);
    if (passwords.ChangeMasterPassword(QString::fromLatin1(arguments[3])) != modPassword::Choice::Saved)
        return 4;
    ::pause();
    return 0;
}
