ipsecimpl_test(test_hostile
  hostile/small_documents.cpp
  hostile/small_documents_test.cpp
  hostile/truncated_load.cpp
  hostile/failing_load.cpp
  hostile/chunked_load.cpp
  hostile/failing_store.cpp)
