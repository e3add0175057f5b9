find_package(Threads REQUIRED)

# The first calls are a program of their own: elsewhere they would not be the first.
ipsecimpl_test(test_first_calls threads/first_calls.cpp support/contents.cpp)
ipsecimpl_test(test_threads
  threads/cancelled.cpp
  threads/independent.cpp
  properties/random_model.cpp
  support/contents.cpp
  ${PROJECT_SOURCE_DIR}/bench/generator.cpp)
target_include_directories(test_threads PRIVATE ${PROJECT_SOURCE_DIR}/bench)
target_link_libraries(test_first_calls PRIVATE Threads::Threads)
target_link_libraries(test_threads PRIVATE Threads::Threads)
