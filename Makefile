# The two commands of the README:
#   make run    installs what is missing, builds, and starts the console
#   make test   installs what is missing, builds with AddressSanitizer and UBSan, runs every test
# Other targets: make console, make build, make bench, make package, make package-check, make deps, make format, make format-check.

JOBS ?= $(shell nproc)
BUILD ?= build
TEST_BUILD ?= build-asan
BENCH_BUILD ?= build-release
PACKAGE_BUILD ?= build-package
CMAKE_FLAGS ?=
LAUNCHER := $(shell command -v ccache >/dev/null 2>&1 && echo -DCMAKE_CXX_COMPILER_LAUNCHER=ccache)

.PHONY: run console test build bench deps format format-check package package-check

deps:
	@bash scripts/install-deps.sh

$(BUILD)/build.ninja:
	cmake -S . -B $(BUILD) -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo $(LAUNCHER) $(CMAKE_FLAGS)

build: deps $(BUILD)/build.ninja
	cmake --build $(BUILD) -j $(JOBS)

# Only the console itself: tests, tools and benchmarks wait for make test / make bench.
console: deps $(BUILD)/build.ninja
	cmake --build $(BUILD) -j $(JOBS) --target quintara

# Without ARGS the desk opens the demo show.
ARGS ?= examples/demo.qsh
run: console
	./$(BUILD)/src/quintara $(ARGS)

$(TEST_BUILD)/build.ninja:
	cmake -S . -B $(TEST_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=Debug -DQUINTARA_SANITIZE=ON -DQUINTARA_WERROR=ON $(LAUNCHER) $(CMAKE_FLAGS)

test: deps $(TEST_BUILD)/build.ninja
	cmake --build $(TEST_BUILD) -j $(JOBS)
	cd $(TEST_BUILD) && QT_QPA_PLATFORM=offscreen \
	  ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 \
	  UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
	  LSAN_OPTIONS=suppressions=$(CURDIR)/tests/lsan.supp \
	  ctest --output-on-failure -j $(JOBS) --timeout 300

$(BENCH_BUILD)/build.ninja:
	cmake -S . -B $(BENCH_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=Release -DQUINTARA_BENCH=ON -DQUINTARA_TESTS=OFF $(LAUNCHER)

bench: deps $(BENCH_BUILD)/build.ninja
	cmake --build $(BENCH_BUILD) -j $(JOBS)
	for b in $(BENCH_BUILD)/bench/bench_*; do $$b; done

# The Debian package: only the console, built for /usr, finding its skins
# where it is installed.
$(PACKAGE_BUILD)/build.ninja:
	cmake -S . -B $(PACKAGE_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
	  -DCMAKE_INSTALL_PREFIX=/usr -DQUINTARA_TESTS=OFF -DQUINTARA_TOOLS=OFF \
	  -DQUINTARA_SOURCE_FALLBACK=OFF -DCMAKE_SKIP_INSTALL_ALL_DEPENDENCY=ON $(LAUNCHER)

package: deps $(PACKAGE_BUILD)/build.ninja
	@bash scripts/install-deps.sh package
	cmake --build $(PACKAGE_BUILD) -j $(JOBS) --target quintara
	cd $(PACKAGE_BUILD) && cpack -G DEB

# Builds the package, runs lintian on it, unpacks it into a fresh root and
# runs the unpacked console there.
package-check: package
	bash scripts/package-check.sh $(PACKAGE_BUILD)

format:
	git ls-files '*.cpp' '*.h' | xargs clang-format -i

# Fails on any file that clang-format would change.
format-check:
	git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run -Werror
