#include "posix/sqlite_history.h"

#include "posix/make_folders.h"
#include "text/date_text.h"

#include <sqlite3.h>

#include <cstdio>
#include <fcntl.h>
#include <initializer_list>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace brovin::posix {
namespace {

using platform::Done;
using platform::Failure;
using platform::Result;
using platform::Score;
using platform::ScoreBy;
using platform::Status;

/// How long somebody else's writing is waited for, in milliseconds. Nobody writes for longer than a moment.
constexpr int kBusyPatience = 500;

Failure failureOf(sqlite3* opened) {
    return {sqlite3_extended_errcode(opened), sqlite3_errmsg(opened)};
}

bool isDamage(const Failure& failure) {
    constexpr int kPrimary = 0xFF;
    const int code = failure.number & kPrimary;
    return code == SQLITE_NOTADB || code == SQLITE_CORRUPT;
}

/// One statement with its values.
class Statement {
public:
    Statement(sqlite3* opened, const std::string& sql) : opened_(opened) {
        sqlite3_prepare_v2(opened, sql.c_str(), static_cast<int>(sql.size()), &prepared_, nullptr);
    }
    ~Statement() { sqlite3_finalize(prepared_); }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    Statement& text(int place, const std::string& value) {
        sqlite3_bind_text(prepared_, place, value.data(), static_cast<int>(value.size()), SQLITE_TRANSIENT);
        return *this;
    }
    Statement& number(int place, std::int64_t value) {
        sqlite3_bind_int64(prepared_, place, value);
        return *this;
    }
    /// SQLITE_ROW, SQLITE_DONE or an error; a statement that could not be prepared is one too.
    int step() { return prepared_ == nullptr ? SQLITE_ERROR : sqlite3_step(prepared_); }
    /// Runs a statement that gives no rows, and makes it ready for the next values.
    Status run() {
        const int code = step();
        Status outcome = code == SQLITE_DONE || code == SQLITE_ROW ? Status(Done{}) : failureOf(opened_);
        sqlite3_reset(prepared_);
        return outcome;
    }
    [[nodiscard]] std::string textAt(int column) const {
        const auto* value = reinterpret_cast<const char*>(sqlite3_column_text(prepared_, column));
        return value == nullptr ? std::string() : std::string(value);
    }
    [[nodiscard]] std::int64_t numberAt(int column) const { return sqlite3_column_int64(prepared_, column); }

private:
    sqlite3* opened_;
    sqlite3_stmt* prepared_ = nullptr;
};

/// Runs one after the other until one fails.
Status runAll(sqlite3* opened, std::initializer_list<const char*> statements) {
    for (const char* const sql : statements)
        if (Status done = Statement(opened, sql).run(); !done)
            return done;
    return Done{};
}

std::string dayOf(platform::DateTime when) {
    return text::isoText(std::chrono::floor<std::chrono::days>(when));
}

/// What a bar stands for, and the order of the bars from the most important one.
std::pair<const char*, const char*> grouping(ScoreBy by) {
    switch (by) {
    case ScoreBy::Week:
        return {"date(day, 'weekday 0', '-6 days')", "1 DESC"}; // the Sunday that ends it, six days back
    case ScoreBy::Month:
        return {"date(day, 'start of month')", "1 DESC"};
    case ScoreBy::Name:
        return {"name", "2 DESC, 1"};
    case ScoreBy::Folder:
        return {"folder", "2 DESC, 1"};
    }
    return {"name", "1"};
}

} // namespace

void SqliteHistory::Close::operator()(sqlite3* opened) const {
    sqlite3_close(opened);
}

Status SqliteHistory::prepare(sqlite3* opened) const {
    sqlite3_busy_timeout(opened, kBusyPatience);
    // A file that somebody else has made could bring statements of its own along, which never end.
    for (const int foreign : {SQLITE_DBCONFIG_ENABLE_TRIGGER, SQLITE_DBCONFIG_ENABLE_VIEW})
        sqlite3_db_config(opened, foreign, 0, nullptr);
    Statement check(opened, "PRAGMA quick_check(1)");
    if (check.step() != SQLITE_ROW)
        return failureOf(opened);
    if (const std::string found = check.textAt(0); found != "ok")
        return Failure{SQLITE_CORRUPT, found};
    return runAll(opened, {"CREATE TABLE IF NOT EXISTS share (day TEXT NOT NULL, name TEXT NOT NULL, "
                           "folder TEXT NOT NULL, items INTEGER NOT NULL, kilobytes INTEGER NOT NULL, "
                           "PRIMARY KEY (day, name, folder)) WITHOUT ROWID",
                           // Another program's table of that name would fail here and not in the midst.
                           "SELECT day, name, folder, items, kilobytes FROM share LIMIT 1"});
}

Result<SqliteHistory::Opened> SqliteHistory::open() {
    static_cast<void>(makeFolders(file_.substr(0, file_.find_last_of('/'))));
    // Made first, so that no moment passes in which others could read it.
    if (const int made = ::open(file_.c_str(), O_CREAT | O_RDWR | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR);
        made >= 0)
        ::close(made);
    for (bool again = true;; again = false) {
        sqlite3* raw = nullptr;
        const int code = sqlite3_open_v2(file_.c_str(), &raw, SQLITE_OPEN_READWRITE, nullptr);
        Opened opened(raw);
        if (code != SQLITE_OK)
            return failureOf(raw);
        const Status ready = prepare(raw);
        if (ready)
            return opened;
        opened.reset();
        if (!again || !isDamage(ready.failure()) || !moveAside())
            return ready.failure();
    }
}

bool SqliteHistory::moveAside() {
    const std::string aside = file_ + ".damaged";
    if (std::rename(file_.c_str(), aside.c_str()) != 0)
        return false;
    // What belongs to the broken file must not be played into the next one.
    std::remove((file_ + "-journal").c_str());
    damaged_ = aside;
    const int made = ::open(file_.c_str(), O_CREAT | O_RDWR | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR);
    if (made >= 0)
        ::close(made);
    return made >= 0;
}

Status SqliteHistory::append(platform::DateTime when, std::span<const platform::DeletedShare> shares) {
    auto opened = open();
    if (!opened)
        return opened.failure();
    sqlite3* const history = opened->get();
    if (Status begun = runAll(history, {"BEGIN IMMEDIATE"}); !begun)
        return begun;
    const std::string day = dayOf(when);
    Statement add(history, "INSERT INTO share VALUES (?1, ?2, ?3, ?4, ?5) ON CONFLICT DO UPDATE SET "
                           "items = items + ?4, kilobytes = kilobytes + ?5");
    for (const platform::DeletedShare& share : shares) {
        add.text(1, day).text(2, share.name).text(3, share.folder);
        Status added = add.number(4, share.items).number(5, share.kilobytes).run();
        if (!added)
            return added; // closing takes the begun change back
    }
    if (Status forgotten = forget(history, day); !forgotten)
        return forgotten;
    return runAll(history, {"COMMIT"});
}

Status SqliteHistory::forget(sqlite3* opened, const std::string& today) const {
    Statement old(opened, "DELETE FROM share WHERE day < date(?1, ?2)");
    if (Status done = old.text(1, today).text(2, "-" + std::to_string(retention_.days) + " days").run();
        !done)
        return done;
    // The day that the last row too many belongs to goes whole, and all before it.
    Statement many(opened, "DELETE FROM share WHERE day <= "
                           "(SELECT day FROM share ORDER BY day DESC LIMIT 1 OFFSET ?1)");
    return many.number(1, static_cast<std::int64_t>(retention_.rows)).run();
}

Result<std::vector<Score>> SqliteHistory::score(ScoreBy by, std::size_t most) {
    auto opened = open();
    if (!opened)
        return opened.failure();
    const auto [group, order] = grouping(by);
    Statement sums(opened->get(), std::string("SELECT ") + group +
                                      ", sum(items), sum(kilobytes) FROM share "
                                      "GROUP BY 1 ORDER BY " +
                                      order + " LIMIT ?1");
    sums.number(1, static_cast<std::int64_t>(most));
    std::vector<Score> bars;
    int code = sums.step();
    for (; code == SQLITE_ROW; code = sums.step())
        bars.push_back({sums.textAt(0), sums.numberAt(1), sums.numberAt(2)});
    if (code != SQLITE_DONE)
        return failureOf(opened->get());
    if (by == ScoreBy::Week || by == ScoreBy::Month)
        bars = {bars.rbegin(), bars.rend()};
    return bars;
}

std::string SqliteHistory::takeDamaged() {
    return std::exchange(damaged_, {});
}

} // namespace brovin::posix
