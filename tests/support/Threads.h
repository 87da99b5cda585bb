#pragma once

#include <gtest/gtest.h>

#include <barrier>
#include <exception>
#include <functional>
#include <thread>
#include <vector>

namespace MrlIOTest {

/// Runs the work on several threads that start at once, with the number of each. An exception fails the test.
inline void onThreads(int threadCount, const std::function<void(int)>& work)
{
    std::barrier start(threadCount);
    std::vector<std::thread> threads;
    for (int number = 0; number < threadCount; ++number)
        threads.emplace_back([&, number] {
            start.arrive_and_wait();
            try {
                work(number);
            } catch (const std::exception& failure) {
                ADD_FAILURE() << "thread " << number << ": " << failure.what();
            }
        });
    for (std::thread& thread : threads)
        thread.join();
}

} // namespace MrlIOTest
