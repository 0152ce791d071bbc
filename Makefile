# make run: installs what is missing, builds and starts the designer.
# make test: the same, then every test; then the whole suite again under AddressSanitizer and
#            UndefinedBehaviorSanitizer.
# make bench: the benchmarks of the largest menu, in a release build.
# make fuzz: builds the fuzz targets with clang and runs each for FUZZ_SECONDS.
# make soak: not part of make test; kills the autosave of the largest menu SOAK_KILLS times, checking
#            after each that the next start finds every file of one save, then runs every fuzz target
#            for SOAK_FUZZ_SECONDS.
# make package: a release build packed as a Debian package, build-package/quorvel_*.deb.
# make coverage: every test in a build with coverage counters, then the line coverage of src/.

BUILD_DIR ?= build
SANITIZE_DIR ?= build-sanitize
BENCH_DIR ?= build-bench
FUZZ_DIR ?= build-fuzz
FUZZ_SECONDS ?= 120
SOAK_KILLS ?= 1000
SOAK_FUZZ_SECONDS ?= 60
PACKAGE_DIR ?= build-package
COVERAGE_DIR ?= build-coverage
JOBS ?= $(shell nproc)
CMAKE_CONFIGURE = cmake -G Ninja -Wno-dev

.PHONY: all deps build run test test-plain test-sanitize bench fuzz soak package coverage format format-check clean

all: build

deps:
	@./scripts/install-deps.sh

build: deps
	$(CMAKE_CONFIGURE) -S . -B $(BUILD_DIR) -DCMAKE_BUILD_TYPE=RelWithDebInfo
	cmake --build $(BUILD_DIR) -j $(JOBS)

run: build
	$(BUILD_DIR)/bin/quorvel

test: test-plain test-sanitize

test-plain: build
	cd $(BUILD_DIR) && ctest --output-on-failure -j $(JOBS)

test-sanitize: deps
	$(CMAKE_CONFIGURE) -S . -B $(SANITIZE_DIR) -DCMAKE_BUILD_TYPE=Debug -DQUORVEL_SANITIZE=ON
	cmake --build $(SANITIZE_DIR) -j $(JOBS)
	cd $(SANITIZE_DIR) && \
	  ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 \
	  UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
	  ctest --output-on-failure -j $(JOBS)

bench: deps
	$(CMAKE_CONFIGURE) -S . -B $(BENCH_DIR) -DCMAKE_BUILD_TYPE=Release -DQUORVEL_BENCHMARKS=ON
	cmake --build $(BENCH_DIR) -j $(JOBS) --target quorvel_bench quorvel_pageview_bench quorvel_pageops_bench \
	  quorvel_transmission_bench quorvel_import_bench quorvel_undo_bench quorvel_check_bench
	$(BENCH_DIR)/bench/quorvel_bench
	$(BENCH_DIR)/bench/quorvel_pageview_bench
	$(BENCH_DIR)/bench/quorvel_pageops_bench
	$(BENCH_DIR)/bench/quorvel_transmission_bench
	$(BENCH_DIR)/bench/quorvel_check_bench
	$(BENCH_DIR)/bench/quorvel_import_bench
	$(BENCH_DIR)/bench/quorvel_undo_bench

fuzz:
	@./scripts/install-deps.sh fuzz
	CC=clang CXX=clang++ $(CMAKE_CONFIGURE) -S . -B $(FUZZ_DIR) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DQUORVEL_FUZZ=ON
	cmake --build $(FUZZ_DIR) -j $(JOBS)
	./scripts/run-fuzzers.sh $(FUZZ_DIR) $(FUZZ_SECONDS)

# The crash test runs on its own here: the kills outlast the time limit ctest gives it.
soak: build
	SOAK_KILLS=$(SOAK_KILLS) $(BUILD_DIR)/tests/crash_safety_tests
	$(MAKE) fuzz FUZZ_SECONDS=$(SOAK_FUZZ_SECONDS)

package:
	@./scripts/install-deps.sh package
	$(CMAKE_CONFIGURE) -S . -B $(PACKAGE_DIR) -DCMAKE_BUILD_TYPE=Release -DBUILD_TESTING=OFF
	cmake --build $(PACKAGE_DIR) -j $(JOBS)
	cd $(PACKAGE_DIR) && cpack

# Debug keeps the counters on the lines they count; the old counters go so that the figure is this run's.
# The disk-full tests cut a child's file size, and with it the counters it leaves: what the coverage
# runtime says about those goes to a file, not into the output the tests compare. The figure is printed
# even when a test failed, and the failure still fails the target.
coverage:
	@./scripts/install-deps.sh coverage
	CMAKE_CXX_COMPILER_LAUNCHER=ccache CMAKE_C_COMPILER_LAUNCHER=ccache $(CMAKE_CONFIGURE) -S . -B $(COVERAGE_DIR) \
	  -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS=--coverage -DCMAKE_C_FLAGS=--coverage \
	  -DCMAKE_EXE_LINKER_FLAGS=--coverage -DCMAKE_SHARED_LINKER_FLAGS=--coverage
	cmake --build $(COVERAGE_DIR) -j $(JOBS)
	find $(COVERAGE_DIR) -name '*.gcda' -delete
	cd $(COVERAGE_DIR) && GCOV_ERROR_FILE=$(abspath $(COVERAGE_DIR))/gcov-errors.txt \
	  ctest --output-on-failure -j $(JOBS); status=$$?; \
	  cd $(CURDIR) && gcovr -r . --filter src/ --gcov-ignore-parse-errors --print-summary --txt $(COVERAGE_DIR)/coverage.txt -j $(JOBS) \
	    $(COVERAGE_DIR); \
	  exit $$status

SOURCES = find src tests bench fuzz sim -name '*.cpp' -o -name '*.h'

format:
	$(SOURCES) | xargs clang-format -i

# Fails on any source file that clang-format would change.
format-check:
	@./scripts/install-deps.sh format
	$(SOURCES) | xargs clang-format --dry-run --Werror

clean:
	rm -rf $(BUILD_DIR) $(SANITIZE_DIR) $(BENCH_DIR) $(FUZZ_DIR) $(PACKAGE_DIR) $(COVERAGE_DIR)
