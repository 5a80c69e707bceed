#include "database/file_check.h"

#include "database/sqlite_handle.h"

namespace {

constexpr int kStepsBetweenLooks = 10000;

int IsStopped(void* stop)
{
    return static_cast<std::stop_token*>(stop)->stop_requested() ? 1 : 0;
}

QString FirstDamage(const QString& path, bool isQuick, std::stop_token stop)
{
    try {
        const SqliteHandle database = OpenHandle(path, SQLITE_OPEN_READONLY);
        sqlite3_busy_timeout(database.get(), kPatience);
        sqlite3_progress_handler(database.get(), kStepsBetweenLooks, IsStopped, &stop);
        sqlite3_stmt* prepared = nullptr;
        const char* const words = isQuick ? "pragma quick_check(1)" : "pragma integrity_check(1)";
        if (sqlite3_prepare_v2(database.get(), words, -1, &prepared, nullptr) != SQLITE_OK)
            return QString::fromUtf8(sqlite3_errmsg(database.get()));
        const SqliteStatement statement(prepared);
        if (sqlite3_step(prepared) != SQLITE_ROW)
            return QString::fromUtf8(sqlite3_errmsg(database.get()));
        const QString answer = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(prepared, 0)));
        return answer == "ok" ? QString() : answer.trimmed();
    } catch (const StoreError& error) {
        return error.description;
    }
}

} // namespace

FileCheck::FileCheck(const QString& path, bool isQuick, const std::function<void()>& done)
    : m_damage(std::async(std::launch::async, [path, isQuick, done, stop = m_stop.get_token()] {
          const QString damage = FirstDamage(path, isQuick, stop);
          done();
          return damage;
      }))
{}
