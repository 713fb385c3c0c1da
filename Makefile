# Entry points; see README.md.
SHELL := /bin/bash
BUILD ?= build
JOBS ?= $(shell nproc)
FUZZ_SECONDS ?= 60
PACKAGES := cmake ninja-build g++ pkg-config libxml2-dev nlohmann-json3-dev libcli11-dev \
            libgtest-dev libgmock-dev libbenchmark-dev libpugixml-dev
FUZZ_PACKAGES := clang-14 libclang-rt-14-dev libfuzzer-14-dev
# The tests of qelstd report read the pages back through a headless browser.
TEST_PACKAGES := chromium

.PHONY: all deps build run test bench asan fuzz clean

all: build

# Installs what is missing, once; a machine that has everything runs no apt-get.
deps:
	@missing=$$(for p in $(PACKAGES) $(EXTRA_PACKAGES); do \
	  dpkg-query -W -f='$${Status}\n' $$p 2>/dev/null | grep -q 'install ok installed' || echo $$p; done); \
	if [ -n "$$missing" ]; then \
	  echo "installing: $$missing"; \
	  SUDO=$$([ "$$(id -u)" = 0 ] || echo sudo); \
	  $$SUDO apt-get update -qq && \
	  DEBIAN_FRONTEND=noninteractive $$SUDO apt-get install -y -qq --no-install-recommends $$missing >/dev/null; \
	fi

$(BUILD)/build.ninja: | deps
	cmake -S . -B $(BUILD) -G Ninja

build: deps $(BUILD)/build.ninja
	cmake --build $(BUILD) -j $(JOBS)

run: build
	./tools/run-main-job.sh $(BUILD)/tools/qelstd

test: build
	@# Without the browser (no package source at hand) its tests skip and say so; the rest still runs.
	$(MAKE) deps EXTRA_PACKAGES="$(TEST_PACKAGES)" || echo "make: $(TEST_PACKAGES) could not be installed; its tests will skip"
	cd $(BUILD) && ctest --output-on-failure -j $(JOBS)

bench: deps
	cmake -S . -B build-bench -G Ninja -DCMAKE_BUILD_TYPE=Release -DQELSTD_PGO=OFF -DQELSTD_TESTS=OFF
	cmake --build build-bench -j $(JOBS)
	./bench/run-benchmarks.sh build-bench

asan: deps
	cmake -S . -B build-asan -G Ninja -DCMAKE_BUILD_TYPE=Debug -DQELSTD_SANITIZE=address,undefined -DQELSTD_BENCH=OFF
	cmake --build build-asan -j $(JOBS)
	cd build-asan && ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
	  ctest --output-on-failure -j $(JOBS)

fuzz:
	$(MAKE) deps EXTRA_PACKAGES="$(FUZZ_PACKAGES)"
	CC=clang-14 CXX=clang++-14 cmake -S . -B build-fuzz -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
	  -DQELSTD_FUZZ=ON -DQELSTD_TESTS=OFF -DQELSTD_BENCH=OFF -DQELSTD_TOOLS=OFF
	cmake --build build-fuzz -j $(JOBS)
	./fuzz/run-fuzzers.sh build-fuzz $(FUZZ_SECONDS)

clean:
	rm -rf $(BUILD) build-bench build-asan build-fuzz
