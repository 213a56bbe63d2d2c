#pragma once
// Two stages on two threads: a worker fills blocks of records while the
// calling thread takes the records of the block before. The calling thread
// keeps everything that touches the session (the store, the event loop);
// the worker runs only what reads the file's text.
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <exception>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace ortelix {

// `fill(block)` fills a block with the next records, overwriting what an
// earlier fill left in it (records are reused, not made anew), leaves its
// size at the number filled, and returns false once the source is exhausted
// (the block may then hold the last records). `take(r)`
// gets every record in order and returns false to stop early. An exception
// of `fill` reaches the caller after the records filled before it were
// taken; one of `take` stops the worker before it goes on. At most `blocks`
// blocks exist at once.
template <typename Record, typename Fill, typename Take>
void RunBlockPipeline(Fill fill, Take take, size_t blocks = 3) {
    std::mutex m;
    std::condition_variable cv;
    std::vector<std::vector<Record>> spare(blocks);
    std::deque<std::vector<Record>> full;
    bool done = false, stop = false;
    std::exception_ptr error;

    std::thread worker([&] {
        try {
            for (bool more = true; more;) {
                std::vector<Record> b;
                {
                    std::unique_lock lock(m);
                    cv.wait(lock, [&] { return stop || !spare.empty(); });
                    if (stop) return;
                    b = std::move(spare.back());
                    spare.pop_back();
                }
                more = fill(b);
                {
                    std::lock_guard lock(m);
                    full.push_back(std::move(b));
                    done = !more;
                }
                cv.notify_all();
            }
        } catch (...) {
            {
                std::lock_guard lock(m);
                error = std::current_exception();
                done = true;
            }
            cv.notify_all();
        }
    });
    // Whatever way the caller leaves, the worker stops and is joined first:
    // its records point into memory that the caller owns.
    struct Join {
        std::mutex& m;
        std::condition_variable& cv;
        bool& stop;
        std::thread& worker;
        ~Join() {
            {
                std::lock_guard lock(m);
                stop = true;
            }
            cv.notify_all();
            worker.join();
        }
    } join{m, cv, stop, worker};

    for (;;) {
        std::vector<Record> b;
        {
            std::unique_lock lock(m);
            cv.wait(lock, [&] { return done || !full.empty(); });
            if (full.empty()) break;
            b = std::move(full.front());
            full.pop_front();
        }
        bool go = true;
        for (Record& r : b)
            if (!take(r)) {
                go = false;
                break;
            }
        {
            std::lock_guard lock(m);
            spare.push_back(std::move(b));
        }
        cv.notify_all();
        if (!go) return;
    }
    std::exception_ptr e;
    {
        std::lock_guard lock(m);
        e = error;
    }
    if (e) std::rethrow_exception(e);
}

}  // namespace ortelix
