"""The actions of the schedule.

Each action is a generator function that takes a Day and an event. It begins the event, yields, and
ends the event when it is resumed after the event's length.
"""

import random
import signal

import disk
import processes
from log_model import is_now_within

MAX_PAGES = 8
MAX_FRAMES = 2
# The first page of the first browser lives as long as the run, so that its memory can be checked.
PROTECTED = 1
BURST = 1000
NUMBERS = 2**31


def choose(values, pick):
    return values[int(pick * len(values))] if values else None


def page_address(day, event):
    """Returns the address of a new document, in one of two origins."""
    origin = random.Random(event.seed).choice(day.origins)
    return f"{origin}/soak.html?{event.seed}#{event.seed % NUMBERS}"


def is_protected(day, document):
    return document.suite is day.suites["A"] and document.browser == PROTECTED


def choose_page(day, event, protected=False):
    """Returns None if there is no page. Includes the protected page only on request."""
    return choose([page for page in day.documents.live()
                   if protected or not is_protected(day, page)], event.pick)


def command(page, *words):
    page.suite.send(send=f"do {page.id}", args=list(words), browser=page.browser)


# Pages

def has_room(day, suite):
    """Also counts requested pages that may still be loading."""
    return len(day.documents.live(suite)) + day.recent_openings(suite) < MAX_PAGES


def open_from(day, page, action, event):
    if page and has_room(day, page.suite):
        day.note_opening(page.suite)
        command(page, action, page_address(day, event))


def open_a_page(day, event):
    open_from(day, choose_page(day, event, protected=True), "open", event)
    yield


def open_a_popup(day, event):
    open_from(day, choose_page(day, event), "popup", event)
    yield


def close_a_page(day, event):
    page = choose_page(day, event)
    if page and len(day.documents.live(page.suite)) > 2:
        day.documents.replace(page.suite, page.browser)
        command(page, "close")
    yield


def navigate(day, event):
    if page := choose_page(day, event):
        command(page, "navigate", page_address(day, event))
    yield


def reload(day, event):
    if page := choose_page(day, event):
        if event.seed % 2:
            command(page, "reload")
        else:
            page.suite.send(reload=True, browser=page.browser)
    yield


def load_by_the_suite(day, event):
    if page := choose_page(day, event):
        page.suite.send(load=page_address(day, event), browser=page.browser)
    yield


def step_back(day, event):
    if page := choose_page(day, event, protected=True):
        command(page, "back" if event.seed % 2 else "goBack")
    yield


def add_a_frame(day, event):
    page = choose_page(day, event, protected=True)
    if page and day.documents.count_frames(page) < MAX_FRAMES:
        command(page, "addFrame", page_address(day, event))
    yield


def remove_a_frame(day, event):
    if page := choose_page(day, event, protected=True):
        command(page, "removeFrame")
    yield


def take_a_picture(day, event):
    if page := choose_page(day, event, protected=True):
        page.suite.send(screenshot=str(day.scratch / f"picture{event.seed}.png"),
                        browser=page.browser)
    yield


def fill_a_page(day, event):
    if page := choose_page(day, event):
        command(page, "fill")
    yield


# The log

def keep_all_copies(day, event):
    marker = day.log_files.marker()
    day.home.show(marker)
    yield
    day.home.hide(marker)


def log_more(day, event):
    marker = day.home.logs / choose(["TARN.debug", "pvx.debug"], event.pick)
    period = day.begin_period(day.log.more)
    day.home.show(marker)
    yield
    day.home.hide(marker)
    period.finish()


def break_the_configuration(day, event):
    period = day.begin_period(day.broken)
    day.home.set_configuration(disk.BROKEN)
    yield
    day.home.set_configuration(disk.GOOD)
    period.finish()


def fill_the_disk(day, event):
    period = day.begin_period(day.log.full)
    day.writer.begin_full_disk()
    day.home.fill()
    yield
    day.home.empty()
    day.writer.end_full_disk()
    period.finish()


def run_logrotate(day, event):
    error = day.home.run_logrotate()
    if error and not is_now_within(day.log.full):  # logrotate writes a state file
        day.problems.append(f"logrotate failed: {error}")
    day.writer.shift_clock()
    yield


def shift_the_clock(day, event):
    day.writer.shift_clock()
    yield


# Processes

def burst_of_refreshes(day, event):
    day.refreshes.burst(BURST)
    yield


def restart_the_bus(day, event):
    day.refreshes.bus.stop()
    yield
    day.refreshes.bus.start()
    day.count("bus restarts")


def choose_renderer(day, event):
    """Never chooses the renderer of the protected page."""
    renderers = []
    for name, suite in sorted(day.suites.items()):
        pids = processes.helpers(suite.pid, "renderer")
        renderers += [pid for pid in pids if pid != day.protected_renderer]
    return choose(renderers, event.pick)


def kill_a_renderer(day, event):
    if pid := choose_renderer(day, event):
        processes.send_signal(pid, signal.SIGKILL)
        day.note_kill(pid)
    yield


def kill_a_browser(day, event):
    day.kill_suite("B")
    yield
    # The day starts another browser when the events of this one end.


def kill_the_writer(day, event):
    day.writer.kill()
    day.count("kills")
    day.writer.start()
    yield


def stop_the_writer(day, event):
    day.count("stops with the lock", day.writer.suspend_with_lock(0.5))
    yield
    processes.send_signal(day.writer.pid, signal.SIGCONT)


def stop_a_renderer(day, event):
    pid = choose_renderer(day, event)
    if pid:
        day.stopped.add(pid)
        processes.send_signal(pid, signal.SIGSTOP)
    yield
    if pid:
        processes.send_signal(pid, signal.SIGCONT)


def stop_a_browser(day, event):
    pid = day.suites["B"].pid
    processes.send_signal(pid, signal.SIGSTOP)
    yield
    processes.send_signal(pid, signal.SIGCONT)


def begin(day, event):
    """Returns the generator. Advancing it once more ends the event."""
    action = globals()[event.action.replace(" ", "_")](day, event)
    next(action)
    return action
