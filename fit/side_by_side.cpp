#include "fit/side_by_side.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

namespace tarvex {

namespace {

/// What the threads share.
struct Pool {
    Pool(std::size_t pieces, const std::function<void(std::size_t)>& workOnOne, std::size_t threads)
        : count(pieces), work(workOnOne), running(threads) {}

    std::size_t count;
    const std::function<void(std::size_t)>& work;
    std::atomic<std::size_t> next{0};
    std::mutex guard;
    std::condition_variable oneLess;
    std::size_t running;
    std::exception_ptr failure{};

    void labour() {
        for (std::size_t k = next++; k < count; k = next++) {
            try {
                work(k);
            } catch (...) {
                const std::lock_guard lock(guard);
                if (!failure) failure = std::current_exception();
                next = count;
            }
        }
        const std::lock_guard lock(guard);
        --running;
        oneLess.notify_all();
    }
};

}  // namespace

bool sideBySide(std::size_t count, int jobs, const std::function<void(std::size_t)>& work,
                const std::function<bool()>& wait) {
    if (jobs <= 0) jobs = static_cast<int>(std::max(1U, std::thread::hardware_concurrency()));
    if (wait && !wait()) return false;  // short work would be over before the first time of asking
    const std::size_t threads = std::min(count, static_cast<std::size_t>(jobs));
    Pool pool(count, work, threads);
    bool ended = false;
    {
        std::vector<std::jthread> hands;
        for (std::size_t k = 0; k < threads; ++k) hands.emplace_back([&pool] { pool.labour(); });
        std::unique_lock lock(pool.guard);
        while (
            !pool.oneLess.wait_for(lock, std::chrono::milliseconds(50), [&] { return pool.running == 0; })) {
            if (ended || !wait) continue;
            lock.unlock();
            try {
                ended = !wait();
            } catch (...) {
                pool.next = count;  // the threads are joined on the way out
                throw;
            }
            if (ended) pool.next = count;
            lock.lock();
        }
    }
    if (pool.failure) std::rethrow_exception(pool.failure);
    return !ended;
}

}  // namespace tarvex
