#include "db/checkpoint.h"

#include "db/file_id.h"

#include <sqlite3.h>

#include <QFile>
#include <QLoggingCategory>
#include <condition_variable>
#include <deque>
#include <fcntl.h>
#include <mutex>
#include <thread>
#include <unistd.h>

namespace db::checkpoint {

namespace {

Q_LOGGING_CATEGORY(lcCheckpoint, "gaschart.db.checkpoint")

enum class Kind { Fold, Flush };
struct Job {
    QString path;
    Kind kind;
    bool operator==(const Job&) const = default;
};

// One worker for the process, started on the first ask and stopped at exit.
class Worker {
  public:
    ~Worker() {
        {
            std::lock_guard lock(m_);
            stop_ = true;
            queue_.clear();
        }
        wake_.notify_all();
        if (thread_.joinable()) thread_.join();
    }

    void request(const Job& job) {
        {
            std::lock_guard lock(m_);
            for (const Job& j : queue_)
                if (j == job) return;
            queue_.push_back(job);
            if (!thread_.joinable()) thread_ = std::thread([this] { run(); });
        }
        wake_.notify_all();
    }

    void settle(const QString& path) {
        std::unique_lock lock(m_);
        std::erase_if(queue_,
                      [&](const Job& j) { return j.path == path || SameFile(j.path, path); });
        idle_.wait(lock, [&] {
            return running_.isEmpty() || (running_ != path && !SameFile(running_, path));
        });
    }

    void waitIdle() {
        std::unique_lock lock(m_);
        idle_.wait(lock, [&] { return queue_.empty() && running_.isEmpty(); });
    }

  private:
    void run() {
        std::unique_lock lock(m_);
        for (;;) {
            wake_.wait(lock, [&] { return stop_ || !queue_.empty(); });
            if (stop_) return;
            const Job job = queue_.front();
            queue_.pop_front();
            running_ = job.path;
            lock.unlock();
            if (job.kind == Kind::Fold)
                Fold(job.path.toUtf8());
            else
                Flush(QFile::encodeName(job.path + "-wal"));
            lock.lock();
            running_.clear();
            idle_.notify_all();
        }
    }

    // A passive fold: it copies what no reader still needs and never waits
    // for a lock, so the program's own connections go on as before. A file
    // gone meanwhile is simply not there to open.
    static void Fold(const QByteArray& path) {
        sqlite3* db = nullptr;
        if (sqlite3_open_v2(path.constData(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX,
                            nullptr) == SQLITE_OK) {
            // A connection finds the file in WAL mode at its first read.
            sqlite3_exec(db, "SELECT count(*) FROM sqlite_master", nullptr, nullptr, nullptr);
            int log = 0, folded = 0;
            const int rc =
                sqlite3_wal_checkpoint_v2(db, "main", SQLITE_CHECKPOINT_PASSIVE, &log, &folded);
            if (rc != SQLITE_OK && rc != SQLITE_BUSY)
                qCWarning(lcCheckpoint) << "log not folded:" << path << sqlite3_errmsg(db);
        }
        sqlite3_close(db);
    }

    // Any descriptor of a file flushes all of it. No log yet, nothing to do.
    static void Flush(const QByteArray& log) {
        const int fd = ::open(log.constData(), O_RDONLY | O_CLOEXEC);
        if (fd < 0) return;
        ::fdatasync(fd);
        ::close(fd);
    }

    std::mutex m_;
    std::condition_variable wake_, idle_;
    std::deque<Job> queue_;
    QString running_;
    bool stop_ = false;
    std::thread thread_;
};

Worker& TheWorker() {
    static Worker w;
    return w;
}

} // namespace

void Request(const QString& path) {
    TheWorker().request({path, Kind::Fold});
}

void FlushAhead(const QString& path) {
    TheWorker().request({path, Kind::Flush});
}

void Settle(const QString& path) {
    TheWorker().settle(path);
}

void WaitIdle() {
    TheWorker().waitIdle();
}

} // namespace db::checkpoint
