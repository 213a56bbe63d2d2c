# The two commands of the README: `make run` and `make test`. Both install what
# is missing first, so a fresh Debian 12 machine needs nothing else.
ARGS ?=
JOBS ?= $(shell nproc)
CMAKE_GEN = -G Ninja

.PHONY: deps build run test bench fuzz clean

deps:
	@scripts/install-deps.sh

build: deps
	@cmake -S . -B build $(CMAKE_GEN) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DORTELIX_TESTS=OFF >/dev/null
	@cmake --build build -j $(JOBS)

run: build
	./build/ortelix $(ARGS)

# The whole suite, under AddressSanitizer and UndefinedBehaviorSanitizer.
test: deps
	@cmake -S . -B build-asan $(CMAKE_GEN) -DCMAKE_BUILD_TYPE=Debug -DORTELIX_SANITIZE=ON >/dev/null
	@cmake --build build-asan -j $(JOBS)
	cd build-asan && ctest -j $(JOBS) --output-on-failure --timeout 600

# Optimised build of the benchmarks, then the comparisons with the peers.
bench: deps
	@cmake -S . -B build-bench $(CMAKE_GEN) -DCMAKE_BUILD_TYPE=Release -DORTELIX_TESTS=OFF -DORTELIX_BENCH=ON >/dev/null
	@cmake --build build-bench -j $(JOBS)
	bench/run-all.sh build-bench

# Every reader's libFuzzer target, each for a bounded time (FUZZ_SECONDS).
FUZZ_SECONDS ?= 30
fuzz: deps
	@cmake -S . -B build-fuzz $(CMAKE_GEN) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++ -DORTELIX_FUZZ=ON -DORTELIX_TESTS=OFF >/dev/null
	@cmake --build build-fuzz -j $(JOBS) --target ortelix_fuzzers
	fuzz/run-all.sh build-fuzz $(FUZZ_SECONDS)

clean:
	rm -rf build build-asan build-bench build-fuzz
