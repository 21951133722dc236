-- What is known of each song's file; see FileFacts. A row may outlive its song.
CREATE TABLE tblFiles (
    RecordID INTEGER PRIMARY KEY,
    Size INTEGER,
    MTime INTEGER,
    Inode INTEGER,
    Device INTEGER,
    SoundHash TEXT(40) COLLATE DAO,
    TagsRead MEMO TEXT COLLATE DAO
);
