# A program of its own, as it replaces operator new.
ipsecimpl_test(test_cost
  cost/counting_new.cpp
  cost/load_cost.cpp
  cost/self_assignment.cpp
  cost/store_cost.cpp)
