#pragma once

#include "duplicate/engine/FileCopy.h"
#include "duplicate/report/RunReport.h"
#include "support/Recorder.h"
#include "support/StoppedClock.h"
#include "support/TemporaryTree.h"
#include "support/TestHost.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace orvana::test
{

/// A source folder, destinations "a", "b" and so on, and an engine whose notifications are recorded.
class EngineTest : public testing::Test
{
protected:
    std::string source(std::string_view relative = std::string_view()) const
    {
        return relative.empty() ? m_tree.path("source") : m_tree.path("source/" + std::string(relative));
    }

    /// Path of `relative` on destination `name`.
    std::string copy(const std::string &name, std::string_view relative) const
    {
        return m_tree.path(name + "/" + std::string(relative));
    }

    /// The engine's job: `items` of the source, by their relative paths ("" is the root itself).
    void setJob(const std::vector<std::string> &items, const std::vector<std::string> &destinations = {"a"},
                std::int64_t totalFiles = 1)
    {
        std::vector<std::string> selection;
        for (const auto &item : items)
            selection.push_back(source(item));
        std::vector<std::string> roots;
        for (const auto &name : destinations)
            roots.push_back(m_tree.folder(name));
        m_engine.SetBackupDiskValue(selection, source(), roots);
        m_engine.setTotalFiles(totalFiles);
    }

    /// Runs the job on the calling thread, with a report.
    void runJob(const std::vector<std::string> &items, const std::vector<std::string> &destinations = {"a"},
                std::int64_t totalFiles = 1)
    {
        setJob(items, destinations, totalFiles);
        useReport();
        m_engine.StartBackup();
    }

    void useReport()
    {
        m_report = std::make_shared<RunReport>(m_tree.folder("reports"), "stamp", m_clock);
        m_engine.setReport(m_report);
    }

    Json report() const { return Json::parse(contentOf(m_report->path())); }

    /// Copies for a direct call of the engine: `relative` on each destination.
    OutArray outs(std::string_view relative, const std::vector<std::string> &destinations = {"a"}) const
    {
        OutArray copies;
        for (const auto &name : destinations)
            copies.emplace_back(copy(name, relative));
        return copies;
    }

    platform::VolumeFaults &faultsOf(const std::string &name)
    {
        return m_host.faults().volume(m_tree.path(name));
    }

    TemporaryTree m_tree;
    StoppedClock m_clock;
    TestHost m_host{m_tree.path("home")};
    NotificationCenter m_center;
    Recorder m_recorder{m_center};
    LogLines m_systemLog;
    std::shared_ptr<RunReport> m_report;
    FileCopy m_engine{m_host, m_center};
};

} // namespace orvana::test
