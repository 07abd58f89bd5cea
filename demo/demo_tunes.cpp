#include "demo/demo_tunes.h"

namespace tarvelo {

const std::array<Tune, 14> tunes{{
    {"Beethoven: Ode to Joy", 120,
     "4 e5 e5 f5 g5 | g5 f5 e5 d5 | c5 c5 d5 e5 | 4. e5 8 d5 2 d5 | "
     "4 e5 e5 f5 g5 | g5 f5 e5 d5 | c5 c5 d5 e5 | 4. d5 8 c5 2 c5 | "
     "4 d5 d5 e5 c5 | d5 8 e5 f5 4 e5 c5 | d5 8 e5 f5 4 e5 d5 | c5 d5 2 g4 | "
     "4 e5 e5 f5 g5 | g5 f5 e5 d5 | c5 c5 d5 e5 | 4. d5 8 c5 2 c5"},
    {"Beethoven: Fuer Elise", 70,
     "16 e5 d#5 | e5 d#5 e5 b4 d5 c5 | 8 a4 16 r c4 e4 a4 | 8 b4 16 r e4 g#4 b4 | "
     "8 c5 16 r e4 e5 d#5 | e5 d#5 e5 b4 d5 c5 | 8 a4 16 r c4 e4 a4 | 8 b4 16 r e4 c5 b4 | 4 a4"},
    {"Frere Jacques", 120,
     "4 c5 d5 e5 c5 | c5 d5 e5 c5 | e5 f5 2 g5 | 4 e5 f5 2 g5 | "
     "8 g5 a5 g5 f5 4 e5 c5 | 8 g5 a5 g5 f5 4 e5 c5 | c5 g4 2 c5 | 4 c5 g4 2 c5"},
    {"Greensleeves", 130,
     "8 a4 | 4 c5 8 d5 8. e5 16 f5 8 e5 | 4 d5 8 b4 8. g4 16 a4 8 b4 | "
     "4 c5 8 a4 8. a4 16 g#4 8 a4 | 4 b4 8 g#4 4 e4 8 a4 | "
     "4 c5 8 d5 8. e5 16 f5 8 e5 | 4 d5 8 b4 8. g4 16 a4 8 b4 | "
     "8. c5 16 b4 8 a4 8. g#4 16 f#4 8 g#4 | 4. a4 a4 | "
     "4. g5 8. g5 16 f#5 8 e5 | 4 d5 8 b4 8. g4 16 a4 8 b4 | "
     "4 c5 8 a4 8. a4 16 g#4 8 a4 | 4 b4 8 g#4 4. e4 | "
     "4. g5 8. g5 16 f#5 8 e5 | 4 d5 8 b4 8. g4 16 a4 8 b4 | "
     "8. c5 16 b4 8 a4 8. g#4 16 f#4 8 g#4 | 2. a4"},
    {"Bach: Toccata in D minor", 66,
     "32 a5 g5 2 a5 | 32 g5 f5 e5 d5 8 c#5 4 d5 r | 32 a4 g4 4. a4 | 16 e4 f4 8 c#4 4 d4 r | "
     "32 a3 g3 2 a3 | 32 g3 f3 e3 d3 8 c#3 2 d3"},
    {"Mozart: Rondo alla Turca", 120,
     "16 b4 a4 g#4 a4 | 8 c5 r 16 d5 c5 b4 c5 | 8 e5 r 16 f5 e5 d#5 e5 | "
     "b5 a5 g#5 a5 b5 a5 g#5 a5 | 4 c6 8 a5 c6 | b5 a5 g5 a5 | b5 a5 g5 a5 | b5 a5 g5 f#5 | 4 e5"},
    {"Grieg: In the Hall of the Mountain King", 140,
     "8 a4 b4 c5 d5 e5 c5 4 e5 | 8 d#5 b4 4 d#5 8 d5 bb4 4 d5 | "
     "8 a4 b4 c5 d5 e5 c5 e5 a5 | g5 e5 c5 e5 2 g5 | "
     "8 a4 b4 c5 d5 e5 c5 4 e5 | 8 d#5 b4 4 d#5 8 d5 bb4 4 d5 | "
     "8 a4 b4 c5 d5 e5 c5 e5 a5 | g5 e5 c5 e5 2 g5"},
    {"Korobeiniki", 140,
     "4 e5 8 b4 c5 4 d5 8 c5 b4 | 4 a4 8 a4 c5 4 e5 8 d5 c5 | 4. b4 8 c5 4 d5 e5 | c5 a4 2 a4 | "
     "4. d5 8 f5 4 a5 8 g5 f5 | 4. e5 8 c5 4 e5 8 d5 c5 | 4 b4 8 b4 c5 4 d5 e5 | c5 a4 2 a4"},
    {"Jingle Bells", 180,
     "4 e5 e5 2 e5 | 4 e5 e5 2 e5 | 4 e5 g5 4. c5 8 d5 | 1 e5 | "
     "4 f5 f5 4. f5 8 f5 | 4 f5 e5 e5 8 e5 e5 | 4 e5 d5 d5 e5 | 2 d5 g5 | "
     "4 e5 e5 2 e5 | 4 e5 e5 2 e5 | 4 e5 g5 4. c5 8 d5 | 1 e5 | "
     "4 f5 f5 4. f5 8 f5 | 4 f5 e5 e5 8 e5 e5 | 4 g5 g5 f5 d5 | 1 c5"},
    {"Ah! vous dirai-je, maman", 110,
     "4 c5 c5 g5 g5 | a5 a5 2 g5 | 4 f5 f5 e5 e5 | d5 d5 2 c5 | "
     "4 g5 g5 f5 f5 | e5 e5 2 d5 | 4 g5 g5 f5 f5 | e5 e5 2 d5 | "
     "4 c5 c5 g5 g5 | a5 a5 2 g5 | 4 f5 f5 e5 e5 | d5 d5 2 c5"},
    {"Rossini: William Tell", 145,
     "16 b4 b4 | 8 b4 16 b4 b4 8 b4 16 b4 b4 | 8 e5 f#5 g#5 16 b4 b4 | "
     "8 b4 16 b4 b4 8 b4 16 e5 g#5 | 8 f#5 d#5 b4 16 b4 b4 | "
     "8 b4 16 b4 b4 8 b4 16 b4 b4 | 8 e5 f#5 g#5 16 e5 g#5 | 4 b5 16 ~ a5 g#5 f#5 | 8 e5 g#5 4 e5"},
    {"Brahms: Lullaby", 76,
     "8 e5 e5 | 4. g5 8 e5 4 e5 | g5 r 8 e5 g5 | 4 c6 4. b5 8 a5 | 4 a5 g5 8 d5 e5 | "
     "4 f5 d5 8 d5 e5 | 4 f5 r 8 d5 f5 | b5 a5 4 g5 b5 | 2. c6"},
    {"Dvorak: Largo from the New World", 60,
     "8. e5 16 g5 4 g5 8. e5 16 d5 4 c5 | 8. d5 16 e5 8. g5 16 e5 2 d5 | "
     "8. e5 16 g5 4 g5 8. e5 16 d5 4 c5 | 8 d5 e5 8. d5 16 c5 2 c5"},
    {"Tchaikovsky: Swan Lake", 90,
     "2 f#5 8 b4 c#5 d5 e5 | 4. f#5 8 d5 4. f#5 8 d5 | 4. f#5 8 b4 8 d5 b4 g4 d5 | 2 b4"},
}};

const Duet minuet{132,
                  "4 d5 8 g4 a4 b4 c5 | 4 d5 g4 g4 | e5 8 c5 d5 e5 f#5 | 4 g5 g4 g4 | "
                  "c5 8 d5 c5 b4 a4 | 4 b4 8 c5 b4 a4 g4 | 4 f#4 8 g4 a4 b4 g4 | 2. a4 | "
                  "4 d5 8 g4 a4 b4 c5 | 4 d5 g4 g4 | e5 8 c5 d5 e5 f#5 | 4 g5 g4 g4 | "
                  "c5 8 d5 c5 b4 a4 | 4 b4 8 c5 b4 a4 g4 | 4 a4 8 b4 a4 g4 f#4 | 2. g4",
                  "2 g3 4 a3 | 2. b3 | c4 | b3 | a3 | g3 | 4 d4 b3 g3 | d4 8 d3 c4 b3 a3 | "
                  "2 b3 4 a3 | g3 b3 g3 | 2. c4 | 4 b3 8 c4 b3 a3 g3 | 2 a3 4 f#3 | 2 g3 4 b3 | c4 d4 d3 | "
                  "2 g3 4 g2"};

}  // namespace tarvelo
