// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
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
        m_vfs.szOsFile = int(sizeof(File)) + s_real->szOsFile;
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

private:
    struct File {
        sqlite3_file base;
        alignas(std::max_align_t) char after[1];
    };
    static sqlite3_file* real(sqlite3_file* file)
    {
        return reinterpret_cast<sqlite3_file*>(reinterpret_cast<File*>(file) + 1);
    }
    static bool fails() { return s_code && --s_left <= 0; }

    static int open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* given)
    {
        static const sqlite3_io_methods methods = table();
        const int result = s_real->xOpen(s_real, name, real(file), flags, given);
        file->pMethods = real(file)->pMethods ? &methods : nullptr;
        return result;
    }
    static int remove(sqlite3_vfs*, const char* name, int sync)
    {
        return fails() ? SQLITE_IOERR_DELETE : s_real->xDelete(s_real, name, sync);
    }
    static sqlite3_io_methods table()
    {
        sqlite3_io_methods m{};
        m.iVersion = 1;
        m.xClose = [](sqlite3_file* f) { return real(f)->pMethods->xClose(real(f)); };
        m.xRead = [](sqlite3_file* f, void* to, int n, sqlite3_int64 at) {
            return real(f)->pMethods->xRead(real(f), to, n, at);
        };
        m.xWrite = [](sqlite3_file* f, const void* from, int n, sqlite3_int64 at) {
            const bool broken = fails();
            const int result = real(f)->pMethods->xWrite(real(f), from, broken ? n / 2 : n, at);
            return broken ? s_code : result;
        };
        m.xTruncate = [](sqlite3_file* f, sqlite3_int64 n) {
            return fails() ? SQLITE_IOERR_TRUNCATE : real(f)->pMethods->xTruncate(real(f), n);
        };
        m.xSync = [](sqlite3_file* f, int flags) {
            return fails() ? SQLITE_IOERR_FSYNC : real(f)->pMethods->xSync(real(f), flags);
        };
        m.xFileSize = [](sqlite3_file* f, sqlite3_int64* n) { return real(f)->pMethods->xFileSize(real(f), n); };
        m.xLock = [](sqlite3_file* f, int level) { return real(f)->pMethods->xLock(real(f), level); };
        m.xUnlock = [](sqlite3_file* f, int level) { return real(f)->pMethods->xUnlock(real(f), level); };
        m.xCheckReservedLock = [](sqlite3_file* f, int* held) {
            return real(f)->pMethods->xCheckReservedLock(real(f), held);
        };
        m.xFileControl = [](sqlite3_file* f, int what, void* with) {
            return real(f)->pMethods->xFileControl(real(f), what, with);
        };
        m.xSectorSize = [](sqlite3_file* f) { return real(f)->pMethods->xSectorSize(real(f)); };
        m.xDeviceCharacteristics = [](sqlite3_file* f) { return real(f)->pMethods->xDeviceCharacteristics(real(f)); };
        return m;
    }

    sqlite3_vfs m_vfs{};
    inline static sqlite3_vfs* s_real = nullptr;
    inline static int s_left = 0, s_code = 0;
};
