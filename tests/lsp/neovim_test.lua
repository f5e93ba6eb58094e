-- SPDX-License-Identifier: GPL-3.0-or-later
-- Neovim's own client against the built server:
--   KEVRA_CLI=PROGRAM nvim --headless -u NONE -i NONE -n -c 'luafile neovim_test.lua'
-- Leaves with code 0, or says what differs and leaves with 1.
local folder = vim.fn.tempname()
vim.fn.mkdir(folder, 'p')

local function expect(what, found, wanted)
  if vim.inspect(found) ~= vim.inspect(wanted) then
    error(what .. ':\n' .. vim.inspect(found) .. '\ninstead of\n' .. vim.inspect(wanted))
  end
end

local function wait(what, holds)
  if not vim.wait(20000, holds, 10) then error('waited in vain for ' .. what) end
end

local function lines()
  return vim.api.nvim_buf_get_lines(0, 0, -1, true)
end

local function place()
  return { line = vim.fn.line('.'), column = vim.fn.col('.') }
end

local function open(name, text)
  vim.fn.writefile(text, folder .. '/' .. name)
  vim.cmd('edit ' .. folder .. '/' .. name)
  local id = vim.lsp.start_client({
    cmd = { vim.env.KEVRA_CLI, 'lsp' }, root_dir = folder,
    on_attach = function(_, buffer) vim.bo[buffer].omnifunc = 'v:lua.vim.lsp.omnifunc' end,
  })
  vim.lsp.buf_attach_client(0, id)
  wait('the server', function() return vim.lsp.buf_get_clients(0)[id] and vim.lsp.get_client_by_id(id).initialized end)
end

local function codes()
  return vim.tbl_map(function(d) return d.code .. '@' .. d.lnum end, vim.diagnostic.get(0))
end

local function run()
  open('main.vbs', { 'option explicit', 'dim näme, fso', 'näme="ä😀" :fso = CreateObject("Scripting.FileSystemObject")',
    'if näme="" then', 'MsgBox   näme', 'fso.', 'end if', 'undeclared = 1' })
  wait('diagnostics', function() return vim.tbl_contains(codes(), 'KV2002@2') end)
  vim.api.nvim_buf_set_lines(0, 5, 6, true, { 'fso.CopyFile "a", "b"' })
  wait('diagnostics of the change', function() return vim.tbl_contains(codes(), 'KV1101@7') end)

  vim.api.nvim_win_set_cursor(0, { 5, 9 })
  vim.lsp.buf.definition()
  wait('the definition', function() return vim.fn.line('.') == 2 end)
  expect('definition', place(), { line = 2, column = 5 })

  vim.lsp.buf.rename('titel')
  wait('the renaming', function() return lines()[2]:find('titel', 1, true) end)
  expect('renamed', { lines()[2], lines()[5] }, { 'dim titel, fso', 'MsgBox   titel' })

  vim.lsp.buf.formatting_sync({ tabSize = 2, insertSpaces = true }, 20000)
  expect('formatted', lines(), { 'Option Explicit', 'Dim titel, fso',
    'titel = "ä😀" :fso = CreateObject("Scripting.FileSystemObject")', 'If titel = "" Then', '  MsgBox titel',
    '  fso.CopyFile "a", "b"', 'End If', 'undeclared = 1' })

  local fixes = vim.lsp.buf_request_sync(0, 'textDocument/codeAction', vim.tbl_extend('force',
    vim.lsp.util.make_given_range_params({ 3, 0 }, { 3, 60 }), { context = { diagnostics = {} } }), 20000)
  local set = vim.tbl_filter(function(action) return action.title:find('Set') end, vim.tbl_values(fixes)[1].result)
  vim.lsp.util.apply_workspace_edit(set[1].edit, 'utf-16')
  expect('fixed', lines()[3], 'titel = "ä😀" :Set fso = CreateObject("Scripting.FileSystemObject")')

  vim.api.nvim_buf_set_lines(0, 5, 6, true, { '  fso.Copy' })
  vim.api.nvim_win_set_cursor(0, { 6, 9 })
  local answers = vim.lsp.buf_request_sync(0, 'textDocument/completion', vim.lsp.util.make_position_params(), 20000)
  local offered = vim.tbl_map(function(item) return item.label end, vim.tbl_values(answers)[1].result)
  expect('completion', { vim.tbl_contains(offered, 'CopyFile'), vim.tbl_contains(offered, 'titel') }, { true, false })
  vim.api.nvim_buf_set_lines(0, 5, 6, true, { '' })
  answers = vim.lsp.buf_request_sync(0, 'textDocument/completion', vim.lsp.util.make_position_params(), 20000)
  local broken = vim.tbl_filter(function(item) return item.textEdit.newText:find('\n') end, vim.tbl_values(answers)[1].result)
  expect('lines in one', broken, {})

  open('page.htm', { '<p><a href="none.htm">n</a>', '<script language="vbscript">', 'MsgBox(1, 2)', '</script>' })
  wait('findings of the page and its script', function()
    return vim.tbl_contains(codes(), 'KV4001@0') and vim.tbl_contains(codes(), 'KV1018@2')
  end)
end

local held, why = pcall(run)
if not held then io.stderr:write(tostring(why) .. '\n') end
vim.fn.delete(folder, 'rf')
vim.cmd(held and 'qall!' or 'cquit 1')
