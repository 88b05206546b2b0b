#include "tests/native/strand.h"

#include <gtest/gtest.h>

#include <semaphore>
#include <string>
#include <thread>

namespace native {

namespace {

constexpr int test_thread = 0;  // in place of a strand's number

}  // namespace

struct Strands::Strand {
    int number = 0;
    int runner = test_thread;  ///< who ran it
    std::function<void()> action;
    std::function<bool()> over;
    std::function<void()> give_up;
    std::binary_semaphore go{0}, back{0};
    bool ended = false;
    std::exception_ptr failure;
    std::thread thread;

    /// What runs on its thread. The action's own objects end there, too.
    void run() {
        try {
            action();
        } catch (...) {
            failure = std::current_exception();
        }
        action = nullptr;
        ended = true;
        back.release();
    }
};

Strands::Strands() = default;

Strands::~Strands() {
    try {
        finish();
    } catch (const std::exception& failure) {
        ADD_FAILURE() << "An action failed after it had waited in a modal window: " << failure.what();
    } catch (...) {
        ADD_FAILURE() << "An action failed after it had waited in a modal window.";
    }
}

void Strands::run(std::function<void()> action) {
    auto strand = std::make_unique<Strand>();
    strand->number = ++made_;
    if (!running_.empty()) strand->runner = running_.back()->number;
    strand->action = std::move(action);
    running_.push_back(strand.get());  // before it begins: it may park at once
    try {
        strand->thread = std::thread(&Strand::run, strand.get());
    } catch (...) {
        running_.pop_back();
        throw;
    }
    if (const std::exception_ptr failure = settle(std::move(strand))) std::rethrow_exception(failure);
}

std::exception_ptr Strands::settle(Owned strand) {
    strand->back.acquire();
    running_.pop_back();
    if (!strand->ended) {
        parked_.push_back(std::move(strand));
        return nullptr;
    }
    strand->thread.join();
    return strand->failure;
}

void Strands::park(std::function<bool()> over, std::function<void()> give_up) {
    if (running_.empty()) throw NotInAStrand();
    if (ending_) give_up();
    if (ending_ || over()) return;
    Strand& self = *running_.back();
    self.over = std::move(over);
    self.give_up = std::move(give_up);
    self.back.release();
    self.go.acquire();
    self.over = nullptr;
    self.give_up = nullptr;
}

bool Strands::may_resume_last() const {
    if (parked_.empty()) return false;
    return running_.empty() || parked_.back()->runner == running_.back()->number;
}

void Strands::resume_last() {
    Owned strand = std::move(parked_.back());
    parked_.pop_back();
    running_.push_back(strand.get());
    strand->go.release();
    const std::exception_ptr failure = settle(std::move(strand));
    if (failure && !kept_) kept_ = failure;
}

void Strands::resume_parked() {
    while (may_resume_last() && parked_.back()->over()) resume_last();
}

void Strands::finish() {
    ending_ = true;
    while (!parked_.empty()) {
        parked_.back()->give_up();
        resume_last();
    }
    ending_ = false;
    if (const std::exception_ptr failure = std::exchange(kept_, nullptr)) std::rethrow_exception(failure);
}

}  // namespace native
