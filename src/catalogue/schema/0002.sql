-- Renames of music files that are under way; see RenameNotes.
CREATE TABLE tblRenameNotes (
    RecordID INTEGER PRIMARY KEY,
    PathName MEMO TEXT COLLATE DAO,
    FileName MEMO TEXT COLLATE DAO,
    NewPathName MEMO TEXT COLLATE DAO,
    NewFileName MEMO TEXT COLLATE DAO
);
