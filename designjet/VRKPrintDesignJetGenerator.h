#pragma once

#include <new>

#include "designjet/VRKDesignJetRecord.h"
#include "generator/VRKPrintHPGL2Generator.h"
#include "host/core/VRKUnicodeString.h"

// What the two DesignJet generators share: the HP-GL/2 body wrapped in a PJL job named after the
// print stream's path, and a property record of the model's own (a VRKPrintHPGL2Properties of the
// model's class) whose values a job hands to the HP-GL/2 body. Every PJL line ends with "\n" and a
// flush; no "\r" is written.
class VRKPrintDesignJetGenerator : public VRKPrintHPGL2Generator {
  public:
    // Takes the job name from the stream's path, then attaches as the HP-GL/2 generator does.
    void Attach(VRKPrintStream* stream) override;

    // The DesignJet record: null until one is set or the first job creates one with defaults.
    VRKBaseUnknown* GetProperties() override;
    // Creates the record with its defaults when there is none yet.
    VRKBaseUnknown* EnsureProperties() override;

  protected:
    // Makes a new record of the model's class with its defaults (one reference), or null.
    using RecordFactory = VRKPrintHPGL2Properties* (*)();

    VRKPrintDesignJetGenerator(const VRKString& language, RecordFactory newRecord)
        : VRKPrintHPGL2Generator(language), newRecord_(newRecord) {}

    // The record factory of a model whose record class is `Record`.
    template <typename Record>
    static VRKPrintHPGL2Properties* NewRecord() {
        return new (std::nothrow) Record;
    }
    // The model's settings of the job: its PJL lines between the job line and the one that enters
    // HP-GL/2, and the record's values handed to the HP-GL/2 body. Called with a record.
    virtual void startModelJob(const VRKPrintParameters& params) = 0;

    // The job: ensures a record (without one, and memory gone, nothing is written), then the job
    // line, the model's settings, the entry into HP-GL/2 and the HP-GL/2 body's start.
    void DrvBegin(const VRKPrintParameters& params) override;
    // The HP-GL/2 body's end, then the end-of-job line.
    void DrvEnd() override;

    // The record as the model's class, which is the only class it is made or set with.
    template <typename Record>
    Record* designJetRecord() const {
        return static_cast<Record*>(designJetProperties.Get());
    }
    // Takes a reference to the record (null drops the current one).
    void setDesignJetRecord(VRKPrintHPGL2Properties* record) { designJetProperties.Set(record); }

    // Writes one PJL line.
    void pjlLine(std::string_view text);
    // The comment line that names the driver and the printer series ("1000", "4000").
    void pjlCommentLine(const char* series);
    // The job line, ESC %-12345X @PJL JOB NAME="VORAN:<name>". The name is written raw: a quote
    // in it is not escaped.
    void pjlJobLine();
    // The end-of-job line. No Universal Exit Language follows it.
    void pjlEndOfJobLine();
    // Hands media type, cutter state and quality to the HP-GL/2 body's record.
    void setBodySettings(int mediaType, int cutterState, int quality);

    VRKUnicodeString jobName;

  private:
    // ESC %-12345X, the command, NAME="VORAN:<job name>".
    void pjlNamedLine(const char* command);

    RecordFactory newRecord_;
    VRKDesignJetRecord<VRKPrintHPGL2Properties> designJetProperties;
};
