-- The tables of an empty archive, in the archive's own SQL. tab_todo and tab_version are not here: the
-- program adds them, with their first rows, when it opens an archive that has none.
-- A line that holds only ";" ends a statement; a line that starts with "--" is a comment.
-- Long texts come last in a table, so that a list reads its columns without walking over them.
-- A foreign key brings its own index; no CREATE INDEX repeats one. Texts are compared without regard to letter
-- case, which no index can serve, so there is none on lexerCode.

CREATE TABLE tab_category (
  categoryID   COUNTER,
  parentID     LONG,
  type         SHORT,
  name         TEXT(255),
  description  LONGTEXT,
  CONSTRAINT ID_PK PRIMARY KEY (categoryID)
)
;
CREATE INDEX parentID_IDX ON tab_category (parentID)
;

-- memoTypeID has no foreign key: a memo without a language stores 0, and one of a language that an archive
-- does not know must still be kept.
CREATE TABLE tab_memo (
  memoID           COUNTER,
  categoryID       LONG CONSTRAINT RfCategory_Memo REFERENCES tab_category (categoryID) ON UPDATE CASCADE ON DELETE CASCADE,
  memoTypeID       LONG,
  memoName         TEXT(255),
  memoLink         TEXT(2048),
  dateIn           DATETIME,
  dateLastMod      DATETIME,
  openingState     SHORT,
  memoDescription  LONGTEXT,
  snipVale         LONGTEXT,
  memoNotes        LONGTEXT,
  CONSTRAINT ID_PK PRIMARY KEY (memoID)
)
;

CREATE TABLE tab_memoType (
  memoTypeID   LONG,
  name         TEXT(255),
  description  TEXT(255),
  lexerCode    TEXT(64),
  enabled      YESNO,
  visible      YESNO,
  keywords     LONGTEXT,
  CONSTRAINT ID_PK PRIMARY KEY (memoTypeID)
)
;

CREATE TABLE tab_style (
  styleID           COUNTER,
  lexerCode         TEXT(64),
  styleNumber       LONG,
  styleDescription  TEXT(255),
  fontName          TEXT(255),
  fontSize          SHORT,
  foreColor         LONG,
  backColor         LONG,
  bold              YESNO,
  italic            YESNO,
  underline         YESNO,
  invisible         YESNO,
  case              SHORT,
  enable            YESNO,
  CONSTRAINT ID_PK PRIMARY KEY (styleID)
)
;

CREATE TABLE tab_bookmark (
  bookmarkID   COUNTER,
  categoryID   LONG CONSTRAINT RfCategory_Bookmark REFERENCES tab_category (categoryID) ON UPDATE CASCADE ON DELETE CASCADE,
  name         TEXT(255),
  url          TEXT(2048),
  keywords     TEXT(1024),
  dateIn       DATETIME,
  dateLastMod  DATETIME,
  description  LONGTEXT,
  CONSTRAINT ID_PK PRIMARY KEY (bookmarkID)
)
;

CREATE TABLE tab_note (
  noteID    COUNTER,
  color     TEXT(16),
  noteDate  DATETIME,
  content   LONGTEXT,
  CONSTRAINT ID_PK PRIMARY KEY (noteID)
)
;

CREATE TABLE tab_passwordCategory (
  passwordCategoryID  COUNTER,
  name                TEXT(255),
  description         LONGTEXT,
  notes               LONGTEXT,
  CONSTRAINT ID_PK PRIMARY KEY (passwordCategoryID)
)
;

-- userName and password hold enciphered text, three characters a byte. passwordCategoryID is 0 for an
-- account without a category, so it has no foreign key.
CREATE TABLE tab_password (
  passwordID          COUNTER,
  passwordCategoryID  LONG,
  title               TEXT(255),
  userName            TEXT(4000),
  password            TEXT(4000),
  URL                 TEXT(2048),
  dateIn              DATETIME,
  dateLastMod         DATETIME,
  description         LONGTEXT,
  notes               LONGTEXT,
  CONSTRAINT ID_PK PRIMARY KEY (passwordID)
)
;

CREATE TABLE tab_option (
  code     TEXT(64),
  options  LONGTEXT,
  CONSTRAINT ID_PK PRIMARY KEY (code)
)
;

INSERT INTO tab_category (parentID, type, name) VALUES (0, 0, 'Code')
;
INSERT INTO tab_category (parentID, type, name) VALUES (0, 1, 'Bookmarks')
;

-- The master password is still to be chosen: an empty text. Without the row the vault would report a
-- problem and mend it at its first opening.
INSERT INTO tab_option (code, options) VALUES ('MasterPwd', '')
;
