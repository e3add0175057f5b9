# A program of its own, as it replaces operator new.
ipsecimpl_test(test_faults faults/failing_new.cpp faults/out_of_memory.cpp)
