#include "tools/qzlogview/view.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <thread>

#include "tools/common/terminal.h"
#include "tools/common/tool_error.h"
#include "tools/qzlogview/context_titles.h"
#include "tools/qzlogview/count.h"
#include "tools/qzlogview/file_query.h"
#include "tools/qzlogview/follow.h"
#include "tools/qzlogview/merge.h"
#include "tools/qzlogview/output.h"
#include "tools/qzlogview/progress.h"
#include "tools/qzlogview/report/html_report.h"
#include "tools/qzlogview/tail.h"
#include "tools/qzlogview/verify.h"

namespace zantlog::view {

namespace {

constexpr size_t kBarWidth = 40;
constexpr uint64_t kFollowTail = 10;

using Clock = std::chrono::steady_clock;

int64_t nowMilliseconds() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
}

// All that a run works with.
class Session {
public:
    explicit Session(const ViewOptions &options)
        : options_(options), look_(options.zone, &configurations_),
          wanted_(compileSelection(options.selection, {nowMilliseconds(), options.zone, &configurations_})),
          query_(wanted_.get()) {
        damage_ = [this](const Damage &damage) {
            damaged_ = true;
            unreadable_ = unreadable_ || damage.unreadable;
            std::cerr << "qzlogview: " << damage.path << " at byte " << damage.offset << ": " << damage.what
                      << '\n';
        };
        if (wanted_ != nullptr) {
            filter_ = [this](const Record &record) { return matches(wanted_.get(), record); };
        }
        const bool colours = options.colours == Colours::always ||
                             (options.colours == Colours::automatic && tools::standardOutputHasColours());
        printer_ = makePrinter({options.format, options.fields, colours});
    }

    int run() {
        if (options_.verify) {
            return verify();
        }
        if (options_.follow) {
            follow();
        } else if (options_.count || !options_.countBy.empty()) {
            count();
        } else if (options_.html) {
            writePage();
        } else {
            show();
        }
        if (damaged_) {
            return unreadable_ ? tools::kExitNotAccessible : tools::kExitProblemsFound;
        }
        return found_ > 0 ? tools::kExitSuccess : tools::kExitNothingFound;
    }

private:
    std::vector<std::string> paths() {
        if (!options_.files.empty()) {
            return namedFiles(options_.files);
        }
        bool unsupported = false;
        std::vector<std::string> selected = selectedFiles(&configurations_, query_.root(), &unsupported);
        if (unsupported && !reportedUnsupported_) {
            reportedUnsupported_ = true;
            std::cerr << "qzlogview: files whose headers are of another version were left out\n";
        }
        return selected;
    }

    // For another look: what there is by now, and what has gone does not matter.
    std::vector<std::string> pathsNow() {
        if (!options_.files.empty()) {
            return filesThere(options_.files);
        }
        configurations_.addOriginatorsWithoutSection();
        return paths();
    }

    std::vector<Source> sources() { return readSources(paths(), damage_); }

    void print(const Entry &entry) {
        ++found_;
        printer_->print(entry, &look_, &output_.text());
    }

    void merge(const std::vector<Source> &all, const std::function<bool(const Entry &)> &take) {
        uint64_t total = 0;
        for (const Source &source : all) {
            total += source.size;
        }
        Progress progress(total);
        MergeOptions options;
        options.progress = [&](uint64_t bytes) { progress.update(bytes); };
        mergeFiles(all, filter_, damage_, options, take);
    }

    // Before the messages, and where people read them.
    void showTitles(const std::vector<Source> &all) {
        const bool forPeople =
            options_.format == OutputFormat::compact || options_.format == OutputFormat::longForm;
        if (forPeople && !options_.selection.inverted) {
            appendContextTitles(contextTitles(all, options_.selection.contexts), &output_.text());
        }
    }

    void showMerged(const std::vector<Source> &all) {
        merge(all, [this](const Entry &entry) {
            print(entry);
            return output_.writeWhenFull() && (!options_.head || found_ < *options_.head);
        });
    }

    void printAll(std::vector<EntryPointer> entries) {
        if (options_.reverse) {
            std::reverse(entries.begin(), entries.end());
        }
        for (const EntryPointer &entry : entries) {
            print(*entry);
            if (!output_.writeWhenFull()) {
                return;
            }
        }
    }

    // The latest first: of all, or of as many as are wanted.
    void showLatest(const std::vector<Source> &all) {
        constexpr uint64_t kAll = UINT64_MAX / 2;
        const uint64_t count = options_.tail                       ? *options_.tail
                               : options_.head && options_.reverse ? *options_.head
                                                                   : kAll;
        std::vector<uint64_t> ends;
        printAll(lastRecords(all, count, filter_, damage_, &ends));
    }

    void show() {
        printer_->begin(&output_.text());
        if (options_.head && *options_.head == 0) {
            return;
        }
        const std::vector<Source> all = sources(); // the records refer to them
        showTitles(all);
        options_.tail || options_.reverse ? showLatest(all) : showMerged(all);
        (void)output_.flush();
    }

    void follow() {
        const std::vector<Source> all = sources();
        std::vector<uint64_t> ends;
        printer_->begin(&output_.text());
        showTitles(all);
        printAll(lastRecords(all, options_.tail.value_or(kFollowTail), filter_, damage_, &ends));
        Follower follower(filter_, damage_);
        for (size_t i = 0; i < all.size(); ++i) {
            follower.add(all[i], ends[i]);
        }
        constexpr auto kPause = std::chrono::milliseconds(80);
        auto nextListing = Clock::now();
        while (output_.flush()) {
            std::this_thread::sleep_for(kPause);
            if (const auto begun = Clock::now(); begun >= nextListing) {
                follower.update(pathsNow());
                // A listing of very many files does not take all of the time.
                constexpr int kShare = 4;
                nextListing = Clock::now() + kShare * (Clock::now() - begun);
            }
            printAll(follower.poll());
        }
    }

    void count() {
        RecordCounter counter(options_.countBy);
        merge(sources(), [&](const Entry &entry) {
            counter.add(entry.record, &look_);
            return true;
        });
        found_ = counter.total();
        output_.text() += counter.text(tools::standardOutputIsTerminal() ? kBarWidth : 0);
        (void)output_.flush();
    }

    void writePage() {
        const std::string &name = *options_.html;
        std::ofstream file(std::filesystem::path(std::u8string(name.begin(), name.end())), std::ios::binary);
        ReportSettings settings;
        settings.title = "Log messages";
        settings.selection = options_.description;
        if (!options_.zone.local) {
            settings.zones.push_back({"as asked for", static_cast<int32_t>(options_.zone.offset)});
        }
        settings.names.product = [this](uint32_t product) { return configurations_.productName(product); };
        settings.names.originator = [this](uint32_t product, uint32_t originator) {
            return configurations_.originatorName(product, originator);
        };
        HtmlReport report(file, std::move(settings));
        const std::vector<Source> all = sources(); // the report refers to them
        merge(all, [&](const Entry &entry) {
            ++found_;
            return report.take(entry.record);
        });
        report.finish();
        if (!file.flush()) {
            throw tools::ToolError(tools::kExitNotAccessible, "cannot write the file " + name);
        }
    }

    int verify() {
        const std::vector<std::string> files = paths();
        uint64_t places = 0;
        const DamageSink report = [&](const Damage &damage) {
            ++places;
            output_.text() += damage.path + ":" + std::to_string(damage.offset) + ": " + damage.what + "\n";
            (void)output_.writeWhenFull();
        };
        const uint64_t records = verifyFiles(files, report);
        output_.text() +=
            std::to_string(records) + " records in " + std::to_string(files.size()) + " files, " +
            (places == 0 ? "nothing wrong" : std::to_string(places) + " places where something is wrong") +
            "\n";
        (void)output_.flush();
        return places > 0       ? tools::kExitProblemsFound
               : !files.empty() ? tools::kExitSuccess
                                : tools::kExitNothingFound;
    }

    const ViewOptions &options_;
    Configurations configurations_;
    Look look_;
    std::shared_ptr<const Expression> wanted_;
    FileQuery query_;
    RecordFilter filter_;
    DamageSink damage_;
    std::unique_ptr<Printer> printer_;
    Output output_;
    uint64_t found_ = 0;
    bool damaged_ = false;
    bool unreadable_ = false;
    bool reportedUnsupported_ = false;
};

} // namespace

int view(const ViewOptions &options) {
    return Session(options).run();
}

} // namespace zantlog::view
