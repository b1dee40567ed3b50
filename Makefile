# `make run` and `make test` set up what they need by themselves; see `make help`.

.DEFAULT_GOAL := help
.PHONY: help run test python setup-run setup-python setup-test setup-benchmark setup-editor build-release build-python \
    build-test build-asan build-fuzz build-benchmark check-format check-release check-asan check-threads check-editor \
    check-lint lint-all format schema pages trust decks benchmark bench-gate bench-counts abi-baseline faults \
    mutants fuzz fuzz-coverage docs editor dist packages install clean

SOURCES = $(shell find quor python tools tests examples benchmarks language -name '*.h' -o -name '*.cpp' | sort)
TABLES = $(wildcard language/summary/*.txt language/arrays/*.txt language/units/*.txt)
QUOR = build/release/bin/quor
DECK = examples/decks/field/field.data
FAULTY_DECK = examples/decks/faulty/three-mistakes.data

help: ## List the targets
	@awk -F ':.*## ' '/^[a-z-]+:.*## / { printf "  make %-13s %s\n", $$1, $$2 }' Makefile

run: setup-run build-release ## Build the release and try it on the deck of a field
	@echo; echo "== quor info $(DECK)"
	@$(QUOR) info $(DECK)
	@echo; echo "== quor check $(DECK)"
	@$(QUOR) check $(DECK)
	@echo; echo "== quor check --simulator Carrow $(FAULTY_DECK)   (it contains three mistakes)"
	@$(QUOR) check --simulator Carrow $(FAULTY_DECK) || test $$? -eq 1
	@echo; echo "Next: $(QUOR) check YOUR.data"
	@echo "      $(QUOR) format YOUR.data"
	@echo "      $(QUOR) diff YOUR.data OTHER.data"
	@echo "      $(QUOR) port YOUR.data --to Dunmere"
	@echo "      $(QUOR) show WCONPROD, $(QUOR) --help"

test: setup-test check-format docs check-release bench-gate check-editor check-asan check-threads check-lint ## Run all builds, tests and checks
	@echo "== all passed"

setup-run:
	@cmake/setup.sh run

setup-python:
	@cmake/setup.sh python

setup-test:
	@cmake/setup.sh test

setup-benchmark setup-editor: setup-%:
	@cmake/setup.sh $*

build-release build-test build-asan build-fuzz build-benchmark: build-%: configure-%
	@cmake --build --preset $* -- --quiet

configure-%:
	@test -f build/$*/build.ninja || { mkdir -p build && cmake --preset $* >build/$*.log 2>&1; } || \
	    { cat build/$*.log; exit 1; }

check-format: setup-test
	@echo "== format"
	@clang-format --dry-run --Werror $(SOURCES)
	@language/generate/lay-out-tables.sh --check $(TABLES)

check-release: setup-test build-test
	@echo "== tests of the release"
	@$(call run_tests,test)

check-asan: setup-test build-asan
	@echo "== tests under the address and undefined-behaviour sanitizers"
	@$(call run_tests,asan)

check-threads: setup-test configure-tsan
	@echo "== the files of the libraries each by itself, and shared data under the thread sanitizer"
	@cmake --build --preset tsan --target data-tests deck-tests -- --quiet
	@build/tsan/bin/data-tests --gtest_brief=1 --gtest_filter='SharedTree*'
	@build/tsan/bin/deck-tests --gtest_brief=1

check-editor: setup-test build-test
	@echo "== the extension of VS Code, the protocol, and each feature in Neovim"
	@editors/build.sh build/test/bin/quor build/test/editor
	@QUOR=$(CURDIR)/build/test/bin/quor timeout 120 nvim --headless -u NONE -S editors/neovim/features.lua \
	    >build/test/editor/features.txt 2>&1 || { cat build/test/editor/features.txt; exit 1; }

# What is linted: `changed`, the files that differ from the parent of the branch, or `all`.
LINT ?= changed
check-lint: setup-test build-asan configure-tsan
	@echo "== lint"
	@cmake/lint.sh $(LINT)

lint-all: ## Lint all files, the unchanged too
	@$(MAKE) --no-print-directory check-lint LINT=all

# All that the tests print if one fails, else the count alone.
run_tests = ctest --preset $(1) -j $$(nproc) --quiet --output-log build/$(1)-tests.log || \
    { cat build/$(1)-tests.log; exit 1; }; grep 'tests passed' build/$(1)-tests.log

format: setup-test ## Format all sources and tables in place
	clang-format -i $(SOURCES)
	language/generate/lay-out-tables.sh $(TABLES)

TRUST ?= --seeds 2000
trust: setup-test configure-test ## Seed mistakes into the example decks, and count by kind what is found
	@cmake --build --preset test --target trust -- --quiet
	@build/test/bin/trust $(TRUST)

DECKS ?= examples/decks
decks: setup-run build-release ## Count the findings of all *.data below DECKS (examples/decks), and format each elsewhere
	@find $(DECKS) -iname '*.data' -print0 | sort -z | xargs -0 $(QUOR) check --statistics || test $$? -ne 2
	@find $(DECKS) -iname '*.data' -print0 | sort -z | xargs -0 tests/tools/format-decks.sh $(QUOR)

COUNTS = benchmarks/gate/counts.txt
bench-gate: setup-test build-test ## Count the instructions of the hot paths, and fail if one has over 3 % more than before
	@echo "== instructions of the hot paths"
	@benchmarks/gate/gate.sh build/test/bin/hot-paths $(COUNTS)

bench-counts: setup-test build-test ## Keep the counts of the hot paths as they are now
	@benchmarks/gate/gate.sh build/test/bin/hot-paths $(COUNTS) --write

abi-baseline: setup-test build-test ## Keep the interface of the libraries as it is now: what hosts were built with
	@tests/package/abi.sh . build/test/lib tests/package/abi.xml.xz --write

ROWS ?=
benchmark: setup-benchmark build-benchmark ## Compare each hot path with its peer; ROWS="look-up hit" for some
	@build/benchmark/bin/compare build/benchmark/bin/quor $(ROWS)
	@PYTHONPATH=build/benchmark/python /usr/bin/python3 benchmarks/python/reading.py

faults: setup-test build-test ## Let memory and calls of the system fail, one by one, in library and program
	@tests/faults/all.sh build/test

MUTANTS ?= --places 400 --jobs $$(nproc)
mutants: setup-test ## Make small faults in copies of the sources, and show which of them no test finds (more than an hour)
	@/usr/bin/python3 -B tests/mutants/mutants.py . build/mutants $(MUTANTS)

FUZZ ?=
FUZZ_SECONDS ?= 60
fuzz: setup-test build-fuzz ## Run each fuzz target, or FUZZ="deck edits", for FUZZ_SECONDS (60)
	@tests/fuzz/run.sh build/fuzz $(FUZZ_SECONDS) $(FUZZ)

fuzz-coverage: setup-test ## Show what of quor/ the fuzz targets reach from their seeds and what `make fuzz` has kept
	@cmake --preset fuzz -B build/fuzz-coverage \
	    -DCMAKE_CXX_FLAGS="-O1 -fsanitize=fuzzer-no-link -fprofile-instr-generate -fcoverage-mapping" >/dev/null
	@cmake --build build/fuzz-coverage -- --quiet
	@tests/fuzz/coverage.sh build/fuzz-coverage build/fuzz/corpus

schema: setup-test ## Generate the XML forms of the schemas from their sources
	trang language/schema/written.rnc language/schema/written.rng
	trang language/schema/rules.rnc language/schema/rules.rng

docs: setup-test configure-test ## Build the reference of the public headers, the guides and the manual of keywords in build/docs/html
	@mkdir -p build/docs
	@doxygen docs/reference/Doxyfile 2>build/docs/warnings.txt || { cat build/docs/warnings.txt; exit 1; }
	@! grep . build/docs/warnings.txt
	@cmake --build --preset test --target quor -- --quiet
	@build/test/bin/quor manual build/docs/html/manual
	@echo "see build/docs/html/index.html"

# The release with the module of Python: in the same folder, so that nothing is compiled twice.
build-python: setup-python
	@mkdir -p build && cmake --preset release -DVELD_QUOR_PYTHON=ON >build/release.log 2>&1 || \
	    { cat build/release.log; exit 1; }
	@cmake --build --preset release -- --quiet

python: build-python ## Build a wheel of the Python module in build/release/python/dist
	@python/wheel.sh build/release

editor: setup-editor build-release ## Build the extension of VS Code and the colours of decks in build/editor
	@editors/build.sh $(QUOR) build/editor pack
	@echo "see editors/README.md: build/editor/$$(cd build/editor && ls *.vsix), build/editor/quor-deck.vim, quor-deck.xml"

pages: setup-test build-test ## Look at the manual and reports in a browser: search, keyboard, roles, speed; pictures in build/test/pages
	@tests/pages/look.sh build/test/bin/quor build/test/pages $(DECK)

VERSION = $(shell sed -n 's/^project.* VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt)
ARCHIVE = build/dist/veld-quor-$(VERSION).tar.gz
dist: ## Write the sources as committed to an archive in build/dist
	@mkdir -p build/dist
	@git archive --format=tar.gz --prefix=veld-quor-$(VERSION)/ --output=$(ARCHIVE) HEAD
	@ls $(ARCHIVE)

packages: dist ## Build Debian packages of the archive in build/packages, and check them with lintian
	@cmake/setup.sh packages
	@rm -rf build/packages && mkdir -p build/packages && tar -C build/packages -xzf $(ARCHIVE)
	@cd build/packages/veld-quor-$(VERSION) && dpkg-buildpackage --build=binary --no-sign >../build.log 2>&1 || \
	    { tail -n 50 ../build.log; exit 1; }
	@lintian --fail-on error,warning build/packages/*.changes
	@ls build/packages/*.deb

PREFIX ?= /usr/local
install: build-python ## Install the release and the Python module below PREFIX (/usr/local)
	cmake --install build/release --prefix $(PREFIX)

clean: ## Remove all builds
	rm -rf build
