-- What comes of the plays: four tables beside those of schema.sql. The first save into a file makes
-- them, all at once, so a new file and an old one get them in the same way, and a file without them
-- is as good as ever. Numbers are checked as there.

CREATE TABLE IF NOT EXISTS Games (
  GameID TEXT,
  OwnID TEXT,
  GameDate TEXT,
  ArchiveGame TEXT,
  Park TEXT,
  VisitorsLineup TEXT,
  HomeLineup TEXT
);

CREATE TABLE IF NOT EXISTS Plays (
  Number NUMERIC CONSTRAINT Number CHECK (Number BETWEEN -1e15 AND 1e15),
  Inning NUMERIC CONSTRAINT Inning CHECK (Inning BETWEEN -1e15 AND 1e15),
  Half TEXT,
  Outs NUMERIC CONSTRAINT Outs CHECK (Outs BETWEEN -1e15 AND 1e15),
  Team TEXT,
  Batter TEXT,
  Opponent TEXT,
  Pitcher TEXT,
  Outcome TEXT,
  BasesKept NUMERIC CONSTRAINT BasesKept CHECK (BasesKept BETWEEN -1e15 AND 1e15),
  Moves TEXT,
  First TEXT,
  Second TEXT,
  Third TEXT,
  GameID TEXT
);

CREATE TABLE IF NOT EXISTS Runs (
  Play NUMERIC CONSTRAINT Play CHECK (Play BETWEEN -1e15 AND 1e15),
  Runner TEXT,
  Batter TEXT,
  Pitcher TEXT,
  RBI NUMERIC CONSTRAINT RBI CHECK (RBI BETWEEN -1e15 AND 1e15),
  Earned NUMERIC CONSTRAINT Earned CHECK (Earned BETWEEN -1e15 AND 1e15),
  OnByError NUMERIC CONSTRAINT OnByError CHECK (OnByError BETWEEN -1e15 AND 1e15),
  Team TEXT,
  Opponent TEXT,
  GameID TEXT
);

CREATE TABLE IF NOT EXISTS Decisions (
  Pitcher TEXT,
  Decision TEXT,
  Team TEXT,
  GameID TEXT
);

-- A game is looked up among some 700,000 plays of 10,000 games.
CREATE INDEX IF NOT EXISTS PlaysOfGame ON Plays (GameID);
CREATE INDEX IF NOT EXISTS RunsOfGame ON Runs (GameID);
