// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <sqlite3.h>

// While it lives, every file that SQLite opens can be made to fail: from the n-th change on, each write, sync,
// truncation and deletion does nothing (a write: half of it) and gives the result code.
class FailingDisk {
public:
    FailingDisk()
    {
        s_real = sqlite3_vfs_find(nullptr);
        m_vfs = *s_real;
        m_vfs.zName = "failing";
        m_vfs.xOpen = open;
        m_vfs.xDelete = remove;
        m_vfs.pNext = nullptr;
        sqlite3_vfs_register(&m_vfs, 1);
    }
    ~FailingDisk()
    {
        sqlite3_vfs_unregister(&m_vfs);
        sqlite3_vfs_register(s_real, 1);
        works();
    }
    FailingDisk(const FailingDisk&) = delete;
    FailingDisk& operator=(const FailingDisk&) = delete;

    static void failFrom(int change, int code)
    {
        s_left = change;
        s_code = code;
    }
    static void works() { s_code = SQLITE_OK; }
    static bool hasFailed() { return s_code && s_left <= 0; }
    // Of all files so far; a deletion is synced with its folder.
    static int syncs() { return s_syncs; }
    static int syncedDeletions() { return s_syncedDeletions; }

private:
    // What SQLite's own files can do, with the changes replaced.
    struct Methods {
        sqlite3_io_methods patched;
        const sqlite3_io_methods* real;
    };
    static const sqlite3_io_methods& real(const sqlite3_file* file)
    {
        return *reinterpret_cast<const Methods*>(file->pMethods)->real;
    }
    static bool fails() { return s_code && --s_left <= 0; }

    static int open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* given)
    {
        static std::map<const sqlite3_io_methods*, Methods> known;
        const int result = s_real->xOpen(s_real, name, file, flags, given);
        if (file->pMethods) {
            Methods& methods = known[file->pMethods];
            methods = {*file->pMethods, file->pMethods};
            methods.patched.iVersion = 1; // no shared memory, no mapping
            methods.patched.xWrite = write;
            methods.patched.xTruncate = [](sqlite3_file* f, sqlite3_int64 n) {
                return fails() ? SQLITE_IOERR_TRUNCATE : real(f).xTruncate(f, n);
            };
            methods.patched.xSync = [](sqlite3_file* f, int flags) {
                ++s_syncs;
                return fails() ? SQLITE_IOERR_FSYNC : real(f).xSync(f, flags);
            };
            file->pMethods = &methods.patched;
        }
        return result;
    }
    static int write(sqlite3_file* file, const void* from, int n, sqlite3_int64 at)
    {
        const bool isBroken = fails();
        const int result = real(file).xWrite(file, from, isBroken ? n / 2 : n, at);
        return isBroken ? s_code : result;
    }
    static int remove(sqlite3_vfs*, const char* name, int sync)
    {
        s_syncedDeletions += sync != 0;
        return fails() ? SQLITE_IOERR_DELETE : s_real->xDelete(s_real, name, sync);
    }

    sqlite3_vfs m_vfs{};
    inline static sqlite3_vfs* s_real = nullptr;
    inline static int s_left = 0, s_code = 0, s_syncs = 0, s_syncedDeletions = 0;
};
