# Each target installs what it needs (tools/setup), builds, and does its job. `make help` lists them.
.PHONY: build run screenshots test bench check fuzz install package clean help
.DEFAULT_GOAL := build

build: ## leave every program under build/bin
	@tools/setup build
	@cmake --preset release --log-level=WARNING > /dev/null
	@cmake --build --preset release

run: build ## start the virtual handset and open the window on it; without a display, show both in words and pictures
	@cmake --build --preset release --target screenshots
	@tools/demo

screenshots: build ## write a picture of every view and dialog under build/screenshots
	@cmake --build --preset release --target screenshots
	@build/release/tools/screenshots/screenshots build/screenshots
	@echo "$$(find build/screenshots -name '*.png' | wc -l) pictures in build/screenshots"

test: ## build and run all tests
	@tools/setup build test
	@cmake --preset dev --log-level=WARNING > /dev/null
	@cmake --build --preset dev
	@ctest --preset dev

bench: ## measure what docs/benchmarks.md states
	@tools/setup build bench
	@cmake --preset bench --log-level=WARNING > /dev/null
	@cmake --build --preset bench
	@tools/run-benchmarks

check: ## formatting, folder ranks, headers, no Qt outside src/ui
	@tools/setup check
	@tools/check

fuzz: ## run each fuzz target for SECONDS (60)
	@tools/setup build fuzz
	@cmake --preset fuzz --log-level=WARNING > /dev/null
	@cmake --build --preset fuzz
	@tools/run-fuzzers $(or $(SECONDS),60)

install: build ## install under PREFIX (/usr/local)
	@cmake --install build/release --prefix $(or $(PREFIX),/usr/local)

package: build ## make a Debian package under build
	@tools/setup package
	@cd build/release && cpack -B "$(CURDIR)/build" > /dev/null
	@ls build/*.deb

clean: ## remove everything that was built
	@rm -rf build

help:
	@sed -n 's/^\([a-z]*\):.*## \(.*\)/make \1\t\2/p' Makefile | expand -t 16
