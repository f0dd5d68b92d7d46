# Entry points: make demo, make test, make bench, make screenshots. Missing Debian packages are installed first
# (as root) or named with the command to install them.
BUILD ?= build
BENCH ?=
GENERATOR := $(shell command -v ninja >/dev/null 2>&1 && echo "-G Ninja")

.PHONY: all deps build demo test bench screenshots clean

all: build

deps:
	@./scripts/install-deps.sh

$(BUILD)/CMakeCache.txt: | deps
	cmake -S . -B $(BUILD) $(GENERATOR) -DCMAKE_BUILD_TYPE=RelWithDebInfo

build: deps $(BUILD)/CMakeCache.txt
	cmake --build $(BUILD) -j $$(nproc)

demo: build
	@./scripts/demo.sh $(BUILD)

test: build
	@./scripts/run-tests.sh $(BUILD)

screenshots: build
	@./scripts/screenshots.sh $(BUILD) docs/screens

bench: build
	@./scripts/run-bench.sh $(BUILD) $(BENCH)

clean:
	rm -rf $(BUILD) .dbtest
