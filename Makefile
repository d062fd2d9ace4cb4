# Two commands do all the set-up on a fresh machine:
#   make run    builds the library and the xfmt command only, then formats the bundled sample data
#   make test   builds everything (tests, fuzz replays, benchmarks) and runs the tests through ctest
#               (all but the long sweeps labelled exhaustive: make test-exhaustive runs those)
# Nothing is installed silently: a missing Debian package is named and the build stops.

BUILD ?= build
JOBS ?= $(shell nproc 2>/dev/null || echo 2)
CMAKE_FLAGS ?= -DCMAKE_BUILD_TYPE=Release

.PHONY: all run test test-exhaustive bench check-deps clean sanitize

all: $(BUILD)/build.ninja
	cmake --build $(BUILD) -j $(JOBS)

check-deps:
	@missing=""; \
	command -v cmake >/dev/null || missing="$$missing cmake"; \
	command -v g++ >/dev/null || missing="$$missing g++"; \
	command -v ninja >/dev/null || missing="$$missing ninja-build"; \
	[ -f /usr/include/gtest/gtest.h ] || missing="$$missing libgtest-dev"; \
	[ -f /usr/include/benchmark/benchmark.h ] || echo "note: libbenchmark-dev is missing; benchmarks will be skipped"; \
	if [ -n "$$missing" ]; then echo "missing Debian packages:$$missing (apt-get install$$missing)"; exit 1; fi

$(BUILD)/build.ninja: | check-deps
	cmake -S . -B $(BUILD) -G Ninja $(CMAKE_FLAGS)

# Only what the sample needs: the tests, fuzz replays and benchmarks take
# many times longer to build.
run: $(BUILD)/build.ninja
	cmake --build $(BUILD) -j $(JOBS) --target xfmt xfmt_static xfmt_cli
	./tools/run-sample.sh $(BUILD)

test: all
	cd $(BUILD) && ctest --output-on-failure -j $(JOBS) -LE exhaustive

test-exhaustive: all
	cd $(BUILD) && ctest --output-on-failure -j $(JOBS) -L exhaustive

bench: all
	$(BUILD)/bench/xfmt_bench

sanitize: check-deps
	cmake -S . -B $(BUILD)-asan -G Ninja -DCMAKE_BUILD_TYPE=Debug -DXFMT_SANITIZE=ON -DXFMT_BENCH=OFF
	cmake --build $(BUILD)-asan -j $(JOBS)
	cd $(BUILD)-asan && ctest --output-on-failure -j $(JOBS) -LE exhaustive

clean:
	rm -rf $(BUILD) $(BUILD)-asan
