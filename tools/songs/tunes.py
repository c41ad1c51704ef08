"""The songs of a first start, as tunes.

A melody is words of "degree:beats" (beats 1 when left out): degree 1 to 7 of the key, a ' after it
for the octave above, a , for the one below, # and b for half steps, r for a rest; | is for the eye.
Chords are degrees of the key, one a bar, each a triad of the scale; "7" after a - adds the seventh.
"""

LUMEN = {
    "artist": "Lumen Quay", "album": "Harbour Lights", "year": "2021", "cover": "harbour_lights",
    "genre": 76,
}
ORCHARD = {
    "artist": "The Paper Orchard", "album": "Windfall", "year": "2022", "cover": "windfall",
    "genre": 80,
}
KESTREL = {
    "artist": "Odd Kestrel", "album": "Night Ferry", "year": "2023", "cover": "night_ferry",
    "genre": 52,
}

SONGS = [
    {
        **LUMEN, "track": 1, "title": "First Ferry", "kind": "mp3",
        "key": "D4", "mode": "major", "tempo": 88, "bar": 4, "style": "piano", "room": 0.3,
        "chords": "1 5 6 4 1 5 4-7 5 6 3 4 1 4-7 5 1",
        "melody": "3:1.5 2:.5 1 5, | 2:1.5 3:.5 2:2 | 1 2:.5 3:.5 5 3 | 4:1.5 3:.5 1:2 |"
                  "5:1.5 4:.5 3 1 | 2 3:.5 4:.5 5:2 | 6 5:.5 4:.5 3 1 | 2:3 r:1 |"
                  "6:1.5 5:.5 3 6 | 5:1.5 3:.5 2:2 | 4 3:.5 2:.5 1 6, | 3:2 1:2 |"
                  "4 5:.5 6:.5 1' 6 | 5 3:.5 2:.5 2:2 | 1:4",
    },
    {
        **LUMEN, "track": 2, "title": "Gulls over the Breakwater", "kind": "mp3",
        "key": "G4", "mode": "major", "tempo": 132, "bar": 3, "style": "waltz", "room": 0.28,
        "chords": "1 1 6 6 4 4 5 5 1 3 6 4 2-7 5 1 1 4 5 3 6 4 5 1 1",
        "melody": "5:2 3 | 1':2 7:1 | 6:2 5 | 3:3 | 4:2 5 | 6:2 4 | 5:2 4 | 2:3 |"
                  "5:2 3 | 7:2 5 | 1':2 6 | 4:3 | 2 4 6 | 5:2 7, | 1:3 | r:3 |"
                  "6 1' 6 | 7 5 2 | 3 5 7 | 1':2 6 | 4 6 5 | 2 3 2 | 1:3 | 1':3",
    },
    {
        **LUMEN, "track": 3, "title": "Lamps Coming On", "kind": "mp3",
        "key": "A4", "mode": "minor", "tempo": 76, "bar": 4, "style": "piano", "room": 0.42,
        "chords": "1 6 3 7 1 4 6 7 1 6 4 1",
        "melody": "1 3 5:2 | 6:1.5 5:.5 3:2 | 5 3:.5 2:.5 3:2 | 2:1.5 1:.5 7,:2 |"
                  "1 3 5 1' | 6:1.5 5:.5 4:2 | 3 4:.5 3:.5 1:2 | 2:3 r |"
                  "5:1.5 3:.5 1:2 | 3:1.5 1:.5 6,:2 | 4, 6, 1 4 | 3:2 1:2",
    },
    {
        **ORCHARD, "track": 1, "title": "Ladder in the Leaves", "kind": "mp3",
        "key": "C4", "mode": "major", "tempo": 116, "bar": 4, "style": "picked", "room": 0.16,
        "chords": "1 4 1 5 6 4 1 5 4 1 4 5 6 4 5 1",
        "melody": "5:.5 3:.5 5 6:.5 5:.5 3 | 4:.5 6:.5 1' 6:2 | 5:.5 3:.5 1 3:.5 5:.5 3 | 2:3 r |"
                  "1':.5 7:.5 6 5:.5 3:.5 5 | 6:.5 4:.5 6 5:2 | 3:.5 5:.5 1' 7:.5 5:.5 3 | 2:3 r |"
                  "6 6:.5 5:.5 4 6 | 5 3:.5 1:.5 5,:2 | 4 5:.5 6:.5 1' 6 | 7:1.5 6:.5 5:2 |"
                  "1' 6:.5 5:.5 3 6 | 4 6:.5 4:.5 3 1 | 2:.5 3:.5 4 7,:.5 2:.5 4 | 1:4",
    },
    {
        **ORCHARD, "track": 2, "title": "Basket and String", "kind": "mp3",
        "key": "F4", "mode": "major", "tempo": 100, "bar": 4, "style": "picked", "room": 0.18,
        "chords": "1 3 4 1 2-7 5 1 5 4 3 2-7 1 4 5 1",
        "melody": "1:.5 2:.5 3:1.5 5:.5 3 | 7,:.5 2:.5 5:1.5 3:.5 2 | 1:.5 4:.5 6 5:.5 4:.5 1 | 3:3 r |"
                  "4:.5 6:.5 1':1.5 6:.5 4 | 5:.5 4:.5 2:1.5 7,:.5 2 | 3 1:.5 3:.5 5 1' | 7:2 5:2 |"
                  "6:1.5 5:.5 4 1 | 5:1.5 3:.5 7,:2 | 2:.5 4:.5 6 4:.5 2:.5 1 | 3:3 r |"
                  "4:.5 6:.5 1' 6:.5 5:.5 4 | 2:.5 5:.5 7 5:.5 4:.5 2 | 1:4",
    },
    {
        **ORCHARD, "track": 3, "title": "Cider Morning", "kind": "ogg",
        "key": "A3", "mode": "dorian", "tempo": 120, "bar": 4, "style": "picked", "room": 0.2,
        "chords": "1 4 1 7 1 4 7 1 3 7 4 1 3 7 4 1",
        "melody": "1:.5 3:.5 5 1' 7:.5 5:.5 | 6:1.5 4:.5 6:2 | 5:.5 3:.5 1 3:.5 5:.5 3 | 2:1.5 7,:.5 2:2 |"
                  "1:.5 3:.5 5 1' 2':.5 3':.5 | 1':1.5 6:.5 4:2 | 7 5:.5 4:.5 2 7, | 1:3 r |"
                  "3' 2':.5 1':.5 7 5 | 2' 1':.5 7:.5 5:2 | 6 1':.5 6:.5 4 6 | 5:1.5 3:.5 1:2 |"
                  "3 5:.5 7:.5 2' 7 | 5 4:.5 2:.5 7,:2 | 4:.5 6:.5 1' 6:.5 4:.5 2 | 1:4",
    },
    {
        **KESTREL, "track": 1, "title": "Runway Amber", "kind": "mp3",
        "key": "E4", "mode": "minor", "tempo": 112, "bar": 4, "style": "synth", "room": 0.24,
        "chords": "1 6 3 7 1 6 3 7 4 1 6 7 1 6 7 1",
        "melody": "r:4 | r:4 | 5:1.5 3:.5 2:2 | 2:1.5 3:.5 7,:2 |"
                  "1:1.5 3:.5 5 1' | 6:2 5 3 | 5:1.5 7:.5 5 3 | 2:3 r |"
                  "4:1.5 6:.5 1':2 | 7 5:.5 3:.5 1:2 | 3:1.5 1:.5 6, 1 | 2:1.5 3:.5 4:2 |"
                  "5:1.5 3:.5 1 5 | 6:1.5 5:.5 3:2 | 2:.5 3:.5 4 2 7, | 1:4",
    },
    {
        **KESTREL, "track": 2, "title": "Window Seat", "kind": "mp3",
        "key": "Bb3", "mode": "major", "tempo": 104, "bar": 4, "style": "synth", "room": 0.3,
        "chords": "1 5 6 4 1 5 4 4 6 3 4 1 4 5 1",
        "melody": "r:4 | r:4 | 3:1.5 5:.5 1':2 | 6:1.5 5:.5 4:2 |"
                  "3 5 1':1.5 7:.5 | 7:1 5:.5 4:.5 2:2 | 1:1.5 4:.5 6 5 | 4:3 r |"
                  "1':1.5 7:.5 6 3 | 7:1.5 5:.5 3:2 | 6 4:.5 6:.5 1' 6 | 5:1.5 3:.5 1:2 |"
                  "4 5:.5 6:.5 1' 2' | 7:1.5 5:.5 2:2 | 1':4",
    },
]
