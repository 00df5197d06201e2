#include "TraceDatei.h"

#include "Text.h"
#include "Zeit.h"

#include <fcntl.h>
#include <unistd.h>

namespace qvm {

bool TraceDatei::Oeffnen(const std::string& path, const DateTime& now) {
    // A pipe that nobody reads must not hold the command up; one that is read gets the trace like a file.
    const int descriptor = ::open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NONBLOCK, 0600);
    if (descriptor < 0) {
        return false;
    }
    ::fcntl(descriptor, F_SETFL, ::fcntl(descriptor, F_GETFL) & ~O_NONBLOCK);
    file_.reset(::fdopen(descriptor, "a"));
    if (!file_) {
        ::close(descriptor);
        return false;
    }
    const std::string heading = "# " + Datum_Text(Heute(now)) + " " + Ziffern(now.Hour, 2) + ":" +
                                Ziffern(now.Minute, 2) + ":" + Ziffern(now.Second, 2) + "\n";
    return std::fputs(heading.c_str(), file_.get()) >= 0 && std::fflush(file_.get()) == 0;
}

void TraceDatei::Schreiben(const TraceFrame& frame) {
    if (file_) {
        whole_ = std::fputs((Protokoll_Zeile(frame) + "\n").c_str(), file_.get()) >= 0 && whole_;
    }
}

void TraceDatei::Ablegen() {
    if (file_) {
        whole_ = std::fflush(file_.get()) == 0 && whole_;
    }
}

} // namespace qvm
