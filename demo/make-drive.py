#!/usr/bin/python3
"""Makes the sample drive: ten minutes of a GPS receiver's words, one burst a second.

    make-drive.py FILE

A start, a town with lights, a motorway, a tunnel without a fix, a car park."""

import math
import sys

# Seconds, speed at their end in km/h, degrees that the road bends in that time, whether the sky is seen.
LEGS = (
    (20, 0, 0, True), (12, 32, 20, True), (25, 50, 40, True), (10, 0, 0, True), (15, 0, 0, True), (12, 48, -60, True),
    (40, 50, 30, True), (9, 0, 0, True), (20, 0, 0, True), (14, 55, 15, True), (30, 70, -25, True),
    (25, 118, 60, True), (60, 130, 20, True), (45, 131, -30, True), (25, 100, 0, True), (35, 99, 10, False),
    (25, 128, 0, True), (60, 160, 25, True), (30, 120, -15, True), (18, 60, 70, True), (30, 50, -80, True),
    (12, 30, 45, True), (13, 0, 30, True), (15, 0, 0, True),
)
KNOT = 1.852          # km/h
DEGREE = 111_320      # metres of a degree of latitude


def sentence(body):
    total = 0
    for letter in body.encode("ascii"):
        total ^= letter
    return f"${body}*{total:02X}\r\n"


def angle(value, digits, letters):
    """Degrees and minutes as receivers write them, a comma, the letter of the side."""
    whole = int(abs(value))
    return f"{whole:0{digits}d}{(abs(value) - whole) * 60:06.3f},{letters[value < 0]}"


def burst(second, place, speed, course, height, sky):
    """Longer than 600 characters in front of the closing GSA: shorter ones are read two at a time."""
    time = f"{9 + (12 * 60 + second) // 3600:02d}{(12 + second // 60) % 60:02d}{second % 60:02d}.000"
    where = f"{angle(place[0], 2, 'NS')},{angle(place[1], 3, 'EW')}"
    satellites = 7 + int(2.5 + 2.5 * math.sin(second / 47)) if sky else 0
    moves = f"{course:05.1f},{speed / KNOT:05.1f}"
    if sky:
        words = [f"GPGGA,{time},{where},1,{satellites:02d},0.9,{height:.1f},M,46.9,M,,",
                 f"GPRMC,{time},A,{where},{speed / KNOT:05.1f},{course:05.1f},140625,,,A",
                 f"GPVTG,{course:05.1f},T,,M,{speed / KNOT:05.1f},N,{speed:05.1f},K,A",
                 f"GPGLL,{where},{time},A,A", f"GPRMB,V,,,,,,,,,,,,V,{moves}"]
    else:
        words = [f"GPGGA,{time},,,,,0,00,99.9,,M,,M,,", f"GPRMC,{time},V,,,,,,,140625,,,N", "GPVTG,,T,,M,,N,,K,N",
                 f"GPGLL,,,,,{time},V,N", "GPRMB,V,,,,,,,,,,,,V"]
    seen = [(number, (number * 37 + second // 8) % 90, (number * 73 + second // 5) % 360) for number in range(2, 26, 2)]
    for part in range(3):
        rows = "".join(f",{number:02d},{up:02d},{around:03d},{30 + number if sky else ''}"
                       for number, up, around in seen[part * 4:part * 4 + 4])
        words.append(f"GPGSV,3,{part + 1},{len(seen):02d}{rows}")
    words.append(f"GPZDA,{time},14,06,2025,00,00")
    words.append(f"GPGST,{time},1.2,1.1,0.9,045.0,1.0,0.9,2.1" if sky else f"GPGST,{time},,,,,,,")
    length = sum(len(word) + 6 for word in words)
    if length < 600:  # some receivers tell how they are, too
        words.append("GPTXT,01,01,02," + "ANTENNA OK " * -(-(600 - length) // 11))
    ids = ",".join(f"{number:02d}" for number, _, _ in seen[:satellites])
    words.append(f"GPGSA,A,{3 if sky else 1},{ids}{',' * (12 - satellites)},1.6,0.9,1.3")
    return "".join(map(sentence, words))


def drive():
    place, course, speed, second = [48.1173, 11.5167], 75.0, 0.0, 0
    for seconds, wanted, bend, sky in LEGS:
        begin = speed
        for i in range(1, seconds + 1):
            share = i / seconds
            speed = begin + (wanted - begin) * (3 - 2 * share) * share * share
            course = (course + bend / seconds) % 360
            step = speed / 3.6 / DEGREE
            place[0] += step * math.cos(math.radians(course))
            place[1] += step * math.sin(math.radians(course)) / math.cos(math.radians(place[0]))
            second += 1
            yield burst(second, place, speed, course, 545.4 + 40 * math.sin(second / 90), sky)


def main():
    with open(sys.argv[1], "w", encoding="ascii", newline="") as file:
        file.writelines(drive())


if __name__ == "__main__":
    main()
