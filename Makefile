# SPDX-License-Identifier: LGPL-2.1-or-later
# Entry points: make demo, make test, make bench, make screenshots, make package. Missing Debian packages are installed first
# (as root) or named with the command to install them.
BUILD ?= build
BENCH ?=
GENERATOR := $(shell command -v ninja >/dev/null 2>&1 && echo "-G Ninja")

.PHONY: all deps build demo test test-sanitize fuzz bench screenshots package golden clean
FUZZ_SECONDS ?= 60

all: build

deps:
	@./scripts/install-deps.sh

# Everything: the library, the programs, the tests and the benchmarks.
build: deps
	cmake -S . -B $(BUILD) $(GENERATOR) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DKX_BUILD_TESTS=ON -DKX_BUILD_BENCH=ON
	cmake --build $(BUILD) -j $$(nproc)

# The demo needs the command-line program only: no test libraries, no database servers.
demo:
	@./scripts/install-deps.sh demo
	@if [ -f $(BUILD)/CMakeCache.txt ]; then cmake -S . -B $(BUILD) >/dev/null; \
	 else cmake -S . -B $(BUILD) $(GENERATOR) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DKX_BUILD_TESTS=OFF -DKX_BUILD_BENCH=OFF; fi
	cmake --build $(BUILD) -j $$(nproc) --target kxcommon-cli
	@./scripts/demo.sh $(BUILD)

test: build
	@./scripts/run-tests.sh $(BUILD)

# The whole suite under AddressSanitizer and UndefinedBehaviorSanitizer, in a build folder of its own.
test-sanitize: deps
	cmake -S . -B build-sanitize $(GENERATOR) -DCMAKE_BUILD_TYPE=Debug -DKX_SANITIZE=ON -DKX_BUILD_TESTS=ON -DKX_BUILD_BENCH=OFF
	cmake --build build-sanitize -j $$(nproc)
	@KX_SANITIZED=1 ./scripts/run-tests.sh build-sanitize

# Every fuzz target for FUZZ_SECONDS (60) seconds from its seeds in fuzz/corpus; fails on a crash,
# a leak, a time-out or memory above the limit.
fuzz:
	@./scripts/install-deps.sh fuzz
	cmake -S . -B build-fuzz $(GENERATOR) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++ -DKX_BUILD_FUZZ=ON \
	    -DKX_BUILD_TESTS=OFF -DKX_BUILD_BENCH=OFF
	cmake --build build-fuzz -j $$(nproc) --target fuzzers
	@./scripts/run-fuzz.sh build-fuzz $(FUZZ_SECONDS)

# Debian packages (runtime libraries, development files, tools) into $(BUILD)/packages.
package: build
	cd $(BUILD) && cpack -B packages

# The golden statement traces written afresh from a run on every product (review with git diff).
golden: build
	@./scripts/golden.sh $(BUILD)

screenshots: build
	@./scripts/screenshots.sh $(BUILD) docs/screens

bench: build
	@./scripts/run-bench.sh $(BUILD) $(BENCH)

clean:
	rm -rf $(BUILD) build-sanitize build-fuzz .dbtest
