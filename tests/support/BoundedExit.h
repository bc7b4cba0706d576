#ifndef BOUNDEDEXIT_H
#define BOUNDEDEXIT_H

#include <QtTest>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

/*
  QTEST_MAIN for tests that run DDS writers. Fast DDS was seen to hang at
  exit inside a writer's destructor about once in 45 runs: once the tests
  have run, the process's own shutdown gets ten seconds, and then ends with
  the tests' result.
*/
#define RV_TEST_MAIN_BOUNDED_EXIT(TestObject, Application)                                                \
    int main(int argc, char* argv[])                                                             \
    {                                                                                            \
        Application app(argc, argv);                                                             \
        Application::setAttribute(Qt::AA_Use96Dpi, true);                                        \
        TestObject tc;                                                                           \
        QTEST_SET_MAIN_SOURCE_PATH                                                               \
        const int result = QTest::qExec(&tc, argc, argv);                                        \
        std::thread([result] {                                                                   \
            std::this_thread::sleep_for(std::chrono::seconds(10));                               \
            std::fprintf(stderr, "test: shutdown hung; ending with the tests' result\n");        \
            std::_Exit(result);                                                                  \
        }).detach();                                                                             \
        return result;                                                                           \
    }

#endif // BOUNDEDEXIT_H
