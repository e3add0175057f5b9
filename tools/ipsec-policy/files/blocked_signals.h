#ifndef IPSEC_POLICY_BLOCKED_SIGNALS_H
#define IPSEC_POLICY_BLOCKED_SIGNALS_H

#include <csignal>
#include <initializer_list>

#include <pthread.h>

/// As long as there is one, no signal from outside but SIGKILL ends the program; what came meanwhile does so then.
class BlockedSignals {
  public:
    BlockedSignals()
    {
        sigset_t signals;
        sigfillset(&signals);
        // These tell of faults of the program, which cannot go on.
        for (const int fault : {SIGABRT, SIGBUS, SIGFPE, SIGILL, SIGSEGV, SIGSYS, SIGTRAP})
            sigdelset(&signals, fault);
        pthread_sigmask(SIG_BLOCK, &signals, &before_);
    }

    BlockedSignals(const BlockedSignals&)            = delete;
    BlockedSignals& operator=(const BlockedSignals&) = delete;

    ~BlockedSignals() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

  private:
    sigset_t before_ = {};
};

#endif
