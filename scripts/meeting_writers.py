#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Eight programs change one log at once, while another program edits it and others read it.

Arguments: PROGRAM JOURNAL_MODE FOLDER [CHANGES]. Counts what is lost, doubled, brought back or told
otherwise than stored, prints one line, and ends with 1 if there is any.
"""
import os
import random
import shutil
import sqlite3
import subprocess
import sys
import threading
import time

program, mode, work = sys.argv[1], sys.argv[2], sys.argv[3]
WRITERS, CHANGES = 8, int(sys.argv[4]) if len(sys.argv) > 4 else 250
container = os.path.join(work, "meeting")
shutil.rmtree(container, ignore_errors=True)
subprocess.run([program, "sample", container], check=True, stdout=subprocess.DEVNULL)
path = os.path.join(container, "database.sqlite")


def connect():
    return sqlite3.connect(path, timeout=30, isolation_level=None)


db = connect()
db.execute(f"PRAGMA journal_mode = {mode}")
db.executescript("DELETE FROM logs; DELETE FROM time_intervals")
names = [f"OWN{i}" for i in range(WRITERS)] + ["SHARED", "STOPPED"]
for name in names:
    db.execute("INSERT INTO logs (guid, category_guid, state, start_date) VALUES (?, 'C', 1, 1699990000)", (name,))
env = {**os.environ, "BREVANT_CONTAINER": container, "LC_ALL": "C.UTF-8", "TZ": "UTC", "HOME": work}


def run(now, *words):
    begin = time.monotonic()
    done = subprocess.run([program, "--now", str(now), *words], env=env, capture_output=True, text=True)
    return done.returncode, done.stderr, time.monotonic() - begin


told = {name: {"pause": 0, "resume": 0} for name in names}
last, slowest, locked, lock = {}, 0.0, 0, threading.Lock()


def writer(i):
    global slowest, locked
    rng, own, next_own = random.Random(i), f"OWN{i}", "pause"
    for step in range(CHANGES):
        now = 1700000000 + step * 10 + i
        pick = rng.random()
        name = own if pick < 0.7 else "SHARED" if pick < 0.95 else "STOPPED"
        what = next_own if name == own else rng.choice(["pause", "resume"])
        code, err, took = run(now, what, name)
        with lock:
            slowest = max(slowest, took)
            locked += "stayed locked" in err
            if code == 0:
                told[name][what] += 1
                if name == own:
                    last[own] = what
        if code == 0 and name == own:
            next_own = "resume" if what == "pause" else "pause"


stop, starved, reads, edits = threading.Event(), 0, 0, 0


def reader():
    global starved, reads
    while not stop.is_set():
        code, err, took = run(1700000000, "status", "--json")
        reads += 1
        starved += code != 0


def tracker():
    global edits
    conn = connect()
    while not stop.is_set():
        conn.execute("BEGIN IMMEDIATE")
        if edits == 20:
            conn.execute("UPDATE logs SET state = 0, start_date = NULL WHERE guid = 'STOPPED'")
        conn.execute("UPDATE logs SET comment = ? WHERE guid LIKE 'OWN%'", (str(edits),))
        time.sleep(0.02)
        conn.execute("COMMIT")
        edits += 1
        time.sleep(0.05)


threads = [threading.Thread(target=writer, args=(i,)) for i in range(WRITERS)]
others = [threading.Thread(target=reader) for _ in range(2)] + [threading.Thread(target=tracker)]
for t in threads + others:
    t.start()
for t in threads:
    t.join()
stop.set()
for t in others:
    t.join()
lost = doubled = revived = untrue = 0
for name in names:
    state, comment = db.execute("SELECT state, comment FROM logs WHERE guid = ?", (name,)).fetchone()
    starts = [r[0] for r in db.execute("SELECT start FROM time_intervals WHERE log_guid = ?", (name,))]
    doubled += len(starts) - len(set(starts))
    if name == "STOPPED":
        revived += state != 0
        continue
    expected = told[name]["resume"] + 1 - (state == 1)
    lost += max(0, expected - len(starts))
    if name.startswith("OWN"):
        untrue += (state == 2) != (last.get(name, "resume") == "pause")
        untrue += len(starts) != told[name]["pause"]
        lost += comment != str(edits - 1)
sound = db.execute("PRAGMA integrity_check").fetchone()[0] == "ok"
bad = lost or doubled or revived or untrue or starved or not sound or slowest >= 3
print(f"{mode:9} {WRITERS * CHANGES:7} changes: {lost} lost, {doubled} doubled, {revived} revived, {untrue} told otherwise, "
      f"{locked} stayed locked, slowest {slowest:.2f} s, {reads} reads, {starved} failed, {edits} edits by the tracker")
sys.exit(1 if bad else 0)
