// A measuring receiver that is not there: parameters, levels over frequency, a memory card. Knows nothing of links.
//
// Commands are words in lower case between blanks. Answers begin with "OK"; "OK *n" announces n more lines. Failures
// are the receiver's replies, "{2,,text}".
//
//     ident                     OK RXSIM,1.0,0042
//     echo WORD                 OK WORD
//     get NAME                  OK value
//     set NAME VALUE            OK                    start, stop (kHz), points, interval (ms between two readings)
//     sweep start               OK                    then a line "L index frequency level" (kHz, dBm) each interval
//     sweep stop                OK count              how many there were
//     save NAME                 OK                    one sweep, as a file on the card
//     read NAME                 OK *points            lines "frequency;level"
//     list                      OK *files             lines "name;bytes"
//     remove NAME               OK

#ifndef VANTOR_APPS_RECEIVER_H
#define VANTOR_APPS_RECEIVER_H

#include <map>
#include <random>
#include <string>
#include <vector>

namespace rxsim
{
// Rows of the receiver's table, 0 to 34.
enum EReply : unsigned int
{
    eWrongCommand = 0,
    eFirstMissed = 1,
    eWrongFirst = 2,
    eSecondMissed = 3,
    eWrongSecond = 4,
    eValueMissed = 5,
    eOutOfRange = 6,
    eWrongFileName = 7,
    eFileOpenError = 8,
    eFileExists = 11,
    eCannotRemove = 13,
    eAccessDenied = 25,
    eInProgress = 26,
    eNotSupported = 29,
};

// As it goes over the line.
std::string Reply(EReply row);

// One thread at a time.
class CReceiver
{
public:
    // Levels are made up, the same for the same seed.
    explicit CReceiver(unsigned int seed) : m_random(seed) {}
    // Levels are those of a measured trace, again and again from its start: dBm, not empty.
    explicit CReceiver(std::vector<double> trace) : m_trace(std::move(trace)) {}

    // The answer, without its last line end; lines of a longer one are separated by CR LF.
    std::string Execute(const std::string& command);

    bool IsSweeping() const { return m_sweeping; }
    unsigned int Interval() const { return static_cast<unsigned int>(m_parameters.at("interval")); }   // milliseconds
    std::string NextReading();                 // the next line of a sweep under way
    void StopSweep() { m_sweeping = false; }   // when nobody is there to read it

private:
    using CWords = std::vector<std::string>;

    std::string Get(const CWords& words) const;
    std::string Set(const CWords& words);
    std::string Sweep(const CWords& words);
    std::string Save(const CWords& words);
    std::string Read(const CWords& words) const;
    std::string List() const;
    std::string Remove(const CWords& words);

    long Frequency(long index) const;   // kHz
    double Level(long frequency);

    std::map<std::string, long> m_parameters = {{"interval", 100}, {"points", 11}, {"start", 88000}, {"stop", 108000}};
    std::map<std::string, std::string> m_card;   // file name, content
    std::mt19937 m_random;
    std::vector<double> m_trace;
    std::size_t m_traceAt = 0;
    bool m_sweeping = false;
    long m_count = 0;   // readings of the sweep
};
}   // namespace rxsim

#endif
